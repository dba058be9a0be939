#include "OrvMatrix.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>

#if defined(__SSE__)
#include <xmmintrin.h>
#endif

#include "OrvInvalidMatrixException.h"
#include "OrvVector3D.h"

namespace
{
const char* const kAddSizeMessage =
    "Both matrices must be the same size to add them together. Think straight man !";
const char* const kMultiplySizeMessage =
    "To multiply matrices A and B, A must have the same number of columns that B has rows. But you knew that "
    "didn't you ?";

// Degrees to radians, as a single-precision constant.
const float kDegreesToRadians = 0.017453292f;

std::size_t ElementCount(int rows, int columns)
{
    if (rows <= 0 || columns <= 0)
        return 0;
    return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
}

// Never asks for zero bytes, so that an empty matrix still owns a block.
std::size_t BlockBytes(std::size_t count)
{
    return (count == 0 ? 1 : count) * sizeof(float);
}

float* AllocateValues(std::size_t count)
{
    float* values = static_cast<float*>(std::malloc(BlockBytes(count)));
    if (values == nullptr)
        throw std::bad_alloc();
    return values;
}
}

OrvMatrix::OrvMatrix() : OrvMatrix(4, 4) {}

OrvMatrix::OrvMatrix(int rows, int columns)
    : m_rowCount(rows), m_columnCount(columns), m_values(AllocateValues(ElementCount(rows, columns)))
{
    Clear();
}

OrvMatrix::OrvMatrix(const OrvMatrix& other)
    : m_rowCount(other.m_rowCount),
      m_columnCount(other.m_columnCount),
      m_values(AllocateValues(ElementCount(other.m_rowCount, other.m_columnCount)))
{
    std::memcpy(m_values, other.m_values, ElementCount(m_rowCount, m_columnCount) * sizeof(float));
}

OrvMatrix::~OrvMatrix()
{
    std::free(m_values);
}

OrvMatrix& OrvMatrix::operator=(const OrvMatrix& other)
{
    if (this == &other)
        return *this;
    const std::size_t count = ElementCount(other.m_rowCount, other.m_columnCount);
    if (m_rowCount != other.m_rowCount || m_columnCount != other.m_columnCount)
    {
        if (count != ElementCount(m_rowCount, m_columnCount))
        {
            float* values = static_cast<float*>(std::realloc(m_values, BlockBytes(count)));
            if (values == nullptr)
                throw std::bad_alloc();
            m_values = values;
        }
        m_rowCount = other.m_rowCount;
        m_columnCount = other.m_columnCount;
    }
    std::memcpy(m_values, other.m_values, count * sizeof(float));
    return *this;
}

void OrvMatrix::Clear()
{
    const std::size_t count = ElementCount(m_rowCount, m_columnCount);
    for (std::size_t i = 0; i < count; ++i)
        m_values[i] = 0.0f;
}

OrvMatrix OrvMatrix::CreateIdentity(unsigned int n)
{
    const int size = static_cast<int>(n);
    OrvMatrix identity(size, size);
    for (int i = 1; i <= size; ++i)
        identity.Set(i, i, 1.0f);
    return identity;
}

OrvMatrix& OrvMatrix::operator*=(float f)
{
    const std::size_t count = ElementCount(m_rowCount, m_columnCount);
    for (std::size_t i = 0; i < count; ++i)
        m_values[i] *= f;
    return *this;
}

OrvMatrix OrvMatrix::operator*(float f) const
{
    OrvMatrix scaled(*this);
    scaled *= f;
    return scaled;
}

OrvMatrix& OrvMatrix::operator+=(const OrvMatrix& other)
{
    if (m_rowCount != other.m_rowCount || m_columnCount != other.m_columnCount)
        ORV_THROW(OrvInvalidMatrixException, kAddSizeMessage, "src/Math/OrvMatrix");
    // Same size, same layout: element k of one array faces element k of the other.
    const std::size_t count = ElementCount(m_rowCount, m_columnCount);
    for (std::size_t i = 0; i < count; ++i)
        m_values[i] += other.m_values[i];
    return *this;
}

OrvMatrix OrvMatrix::operator+(const OrvMatrix& other) const
{
    if (m_rowCount != other.m_rowCount || m_columnCount != other.m_columnCount)
        ORV_THROW(OrvInvalidMatrixException, kAddSizeMessage, "src/Math/OrvMatrix");
    OrvMatrix sum(*this);
    sum += other;
    return sum;
}

namespace
{
// Result column j is built as the sum over k of column k of the left matrix
// times right(k, j), k ascending: every element is accumulated from 0 in the
// order k = 1, 2, ... while the arrays are walked column by column. `product`
// holds rows × columns zeros on entry and overlaps neither input.
void Multiply(const float* leftValues, int rows, int inner, const float* rightValues, int columns, float* product)
{
    for (int j = 0; j < columns; ++j)
    {
        float* target = product + static_cast<std::size_t>(j) * rows;
        const float* right = rightValues + static_cast<std::size_t>(j) * inner;
        for (int k = 0; k < inner; ++k)
        {
            const float factor = right[k];
            const float* left = leftValues + static_cast<std::size_t>(k) * rows;
            for (int i = 0; i < rows; ++i)
                target[i] += left[i] * factor;
        }
    }
}
}  // namespace

OrvMatrix OrvMatrix::operator*(const OrvMatrix& other) const
{
    if (m_columnCount != other.m_rowCount)
        ORV_THROW(OrvInvalidMatrixException, kMultiplySizeMessage, "src/Math/OrvMatrix");
    OrvMatrix product(m_rowCount, other.m_columnCount);
    Multiply(m_values, m_rowCount, m_columnCount, other.m_values, other.m_columnCount, product.m_values);
    return product;
}

namespace
{
// Multiply for two 4×4 matrices, in the same order of summation (each element
// accumulated from 0, k ascending), so the result is the same to the bit: one
// SSE lane per row.
void Multiply4x4(const float* left, const float* right, float* product)
{
#if defined(__SSE__)
    const __m128 c0 = _mm_loadu_ps(left);
    const __m128 c1 = _mm_loadu_ps(left + 4);
    const __m128 c2 = _mm_loadu_ps(left + 8);
    const __m128 c3 = _mm_loadu_ps(left + 12);
    for (int j = 0; j < 4; ++j)
    {
        const float* factors = right + j * 4;
        __m128 sum = _mm_setzero_ps();
        sum = _mm_add_ps(sum, _mm_mul_ps(c0, _mm_set1_ps(factors[0])));
        sum = _mm_add_ps(sum, _mm_mul_ps(c1, _mm_set1_ps(factors[1])));
        sum = _mm_add_ps(sum, _mm_mul_ps(c2, _mm_set1_ps(factors[2])));
        sum = _mm_add_ps(sum, _mm_mul_ps(c3, _mm_set1_ps(factors[3])));
        _mm_storeu_ps(product + j * 4, sum);
    }
#else
    for (int j = 0; j < 4; ++j)
    {
        float column[4] = {0.0f, 0.0f, 0.0f, 0.0f};
        for (int k = 0; k < 4; ++k)
        {
            const float factor = right[j * 4 + k];
            column[0] += left[k * 4 + 0] * factor;
            column[1] += left[k * 4 + 1] * factor;
            column[2] += left[k * 4 + 2] * factor;
            column[3] += left[k * 4 + 3] * factor;
        }
        product[j * 4 + 0] = column[0];
        product[j * 4 + 1] = column[1];
        product[j * 4 + 2] = column[2];
        product[j * 4 + 3] = column[3];
    }
#endif
}
}  // namespace

void OrvMatrix::SetProduct(const OrvMatrix& a, const OrvMatrix& b)
{
    if (a.m_columnCount != b.m_rowCount)
        ORV_THROW(OrvInvalidMatrixException, kMultiplySizeMessage, "src/Math/OrvMatrix");
    if (a.m_rowCount == 4 && a.m_columnCount == 4 && b.m_columnCount == 4 && m_rowCount == 4 && m_columnCount == 4)
    {
        float product[16];
        Multiply4x4(a.m_values, b.m_values, product);
        std::memcpy(m_values, product, sizeof(product));
        return;
    }
    const std::size_t count = ElementCount(a.m_rowCount, b.m_columnCount);
    if (count > 16 || count != ElementCount(m_rowCount, m_columnCount))
    {
        *this = a * b;
        return;
    }
    // Transforms take this path: no allocation, and the inputs may alias the result.
    float product[16] = {};
    Multiply(a.m_values, a.m_rowCount, a.m_columnCount, b.m_values, b.m_columnCount, product);
    m_rowCount = a.m_rowCount;
    m_columnCount = b.m_columnCount;
    std::memcpy(m_values, product, count * sizeof(float));
}

void OrvMatrix::SetIdentity()
{
    Clear();
    for (int i = 1; i <= m_rowCount && i <= m_columnCount; ++i)
        Set(i, i, 1.0f);
}

bool OrvMatrix::operator==(const OrvMatrix& other) const
{
    if (m_rowCount != other.m_rowCount || m_columnCount != other.m_columnCount)
        return false;
    const std::size_t count = ElementCount(m_rowCount, m_columnCount);
    for (std::size_t i = 0; i < count; ++i)
    {
        if (m_values[i] != other.m_values[i])
            return false;
    }
    return true;
}

bool OrvMatrix::operator!=(const OrvMatrix& other) const
{
    return !(*this == other);
}

OrvMatrix OrvMatrix::ComputeInvert() const
{
    OrvMatrix result(m_rowCount, m_columnCount);
    if (m_rowCount != m_columnCount)
        return result;

    // Working matrix [source | identity], n × 2n.
    const int n = m_rowCount;
    OrvMatrix work(n, 2 * n);
    std::memcpy(work.m_values, m_values, ElementCount(n, n) * sizeof(float));
    for (int i = 1; i <= n; ++i)
        work.Set(i, n + i, 1.0f);

    for (int j = 1; j <= n; ++j)
    {
        // Partial pivoting: the non-zero entry of largest magnitude at or
        // below the diagonal; the first one wins among equal magnitudes.
        int pivot = 0;
        float pivotMagnitude = 0.0f;
        for (int r = j; r <= n; ++r)
        {
            const float value = work.Get(r, j);
            if (value == 0.0f)
                continue;
            const float magnitude = std::fabs(value);
            if (pivot == 0 || magnitude > pivotMagnitude)
            {
                pivot = r;
                pivotMagnitude = magnitude;
            }
        }
        if (pivot == 0)
            return result;

        if (pivot != j)
        {
            for (int c = 1; c <= 2 * n; ++c)
            {
                const float swapped = work.Get(j, c);
                work.Set(j, c, work.Get(pivot, c));
                work.Set(pivot, c, swapped);
            }
        }

        const float reciprocal = 1.0f / work.Get(j, j);
        for (int c = 1; c <= 2 * n; ++c)
            work.Set(j, c, work.Get(j, c) * reciprocal);

        for (int r = 1; r <= n; ++r)
        {
            if (r == j)
                continue;
            const float factor = -work.Get(r, j);
            for (int c = 1; c <= 2 * n; ++c)
                work.Set(r, c, work.Get(r, c) + factor * work.Get(j, c));
        }
    }

    std::memcpy(result.m_values, work.m_values + ElementCount(n, n), ElementCount(n, n) * sizeof(float));
    return result;
}

void OrvMatrix::PreMultiply4x4(const float* b)
{
    if (m_rowCount != 4)
        ORV_THROW(OrvInvalidMatrixException, kMultiplySizeMessage, "src/Math/OrvMatrix");

    // B × M column by column, in place: result column j depends on column j
    // of M only. Each element is accumulated from 0 with k ascending, exactly
    // as operator* does, so the result matches B * M bit for bit without any
    // temporary matrix.
    for (int j = 0; j < m_columnCount; ++j)
    {
        float* column = m_values + static_cast<std::size_t>(j) * 4;
        const float source[4] = {column[0], column[1], column[2], column[3]};
        for (int i = 0; i < 4; ++i)
        {
            float sum = 0.0f;
            for (int k = 0; k < 4; ++k)
                sum += b[k * 4 + i] * source[k];
            column[i] = sum;
        }
    }
}

void OrvMatrix::Translate(const OrvVector3D& v)
{
    m_values[12] += v.X;
    m_values[13] += v.Y;
    m_values[14] += v.Z;
}

void OrvMatrix::Scale(const OrvVector3D& v)
{
    const float scale[16] = {
        v.X,  0.0f, 0.0f, 0.0f,
        0.0f, v.Y,  0.0f, 0.0f,
        0.0f, 0.0f, v.Z,  0.0f,
        0.0f, 0.0f, 0.0f, 1.0f,
    };
    PreMultiply4x4(scale);
}

void OrvMatrix::Rotate(float degrees)
{
    const float theta = degrees * kDegreesToRadians;
    const float c = std::cos(theta);
    const float s = std::sin(theta);
    // Column-major: column 1 is (cos, sin, 0, 0), column 2 (-sin, cos, 0, 0).
    const float rotation[16] = {
        c,    s,    0.0f, 0.0f,
        -s,   c,    0.0f, 0.0f,
        0.0f, 0.0f, 1.0f, 0.0f,
        0.0f, 0.0f, 0.0f, 1.0f,
    };
    PreMultiply4x4(rotation);
}
