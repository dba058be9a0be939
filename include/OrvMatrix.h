#ifndef ORV_MATRIX_H
#define ORV_MATRIX_H

class OrvVector3D;

/// General rows × columns matrix of single-precision floats, stored
/// column-major in one malloc'd block: element (i, j), counted from 1, lies at
/// (j - 1) * rows + (i - 1), the layout the shader runtime's column-major
/// setter takes as is. Transforms are 4×4 and act on column vectors from the
/// right (p' = M × p), with the translation in column 4; angles are in degrees.
class OrvMatrix
{
public:
    /// 4×4, all zero.
    OrvMatrix();
    /// rows × columns, all zero.
    OrvMatrix(int rows, int columns);
    OrvMatrix(const OrvMatrix& other);
    virtual ~OrvMatrix();

    /// Takes the source's size (reallocating when it differs) and its values.
    OrvMatrix& operator=(const OrvMatrix& other);

    int GetRowCount() const { return m_rowCount; }
    int GetColumnCount() const { return m_columnCount; }
    /// The column-major array itself.
    const float* GetValues() const { return m_values; }

    /// Indices count from 1 and are not checked: 1..rows, 1..columns.
    float Get(int row, int column) const { return m_values[(column - 1) * m_rowCount + (row - 1)]; }
    void Set(int row, int column, float value) { m_values[(column - 1) * m_rowCount + (row - 1)] = value; }

    void Clear();

    static OrvMatrix CreateIdentity(unsigned int n);
    /// Makes this matrix the identity of its own size, in place.
    void SetIdentity();
    /// this = a × b, bit for bit as operator* computes it, reusing this
    /// matrix's storage when the size fits (a or b may be this matrix).
    /// Throws OrvInvalidMatrixException as operator* does.
    void SetProduct(const OrvMatrix& a, const OrvMatrix& b);

    OrvMatrix& operator*=(float f);
    OrvMatrix operator*(float f) const;
    /// Element-wise sum; throws OrvInvalidMatrixException when the sizes differ.
    OrvMatrix& operator+=(const OrvMatrix& other);
    OrvMatrix operator+(const OrvMatrix& other) const;
    /// Matrix product; throws OrvInvalidMatrixException unless this matrix has
    /// as many columns as `other` has rows.
    OrvMatrix operator*(const OrvMatrix& other) const;

    /// Same size and every element exactly equal.
    bool operator==(const OrvMatrix& other) const;
    bool operator!=(const OrvMatrix& other) const;

    /// Gauss-Jordan inverse with partial pivoting. A matrix that is not square,
    /// or singular, gives a zero matrix of its own size.
    OrvMatrix ComputeInvert() const;

    /// Transform builders for a 4×4 matrix M. Each one pre-multiplies (M
    /// becomes B × M), so a chain of calls acts on a point in call order.
    /// Translate adds v to column 4 directly (elements 12..14 of the array);
    /// the matrix must be 4×4.
    void Translate(const OrvVector3D& v);
    void Scale(const OrvVector3D& v);
    /// Rotation about the Z axis, counter-clockwise for positive degrees.
    void Rotate(float degrees);

private:
    /// Replaces M by B × M, B a 4×4 given column-major; M must have 4 rows.
    void PreMultiply4x4(const float* b);

    int m_rowCount;
    int m_columnCount;
    float* m_values;
};

#endif
