#ifndef ORV_FONT_H
#define ORV_FONT_H

#include "OrvUnicode.h"

class OrvApplication;
class OrvColor;
class OrvColoredTextureMaterial;
class OrvTexture;
struct OrvFontDesc;

enum OrvFontAlign : int
{
    FONT_ALIGN_LEFT = 0,
    FONT_ALIGN_CENTER = 1
};

/// Text drawn with a fixed-cell bitmap font: one texture holds every glyph in a
/// grid (codes 32 to 255 in cells 0 to 223, row by row from the image's top;
/// any other code shows cell 254), each character one textured quad in the
/// current model space. A font holds a user of its texture until it is
/// destroyed, which must happen while the application's texture manager
/// exists (in OnTerminate at the latest). Line n is drawn 2 × symbol height × size lower than
/// line 0; a left-aligned line's first character is centred on x = 0. Fonts
/// are not copied.
class OrvFont
{
public:
    struct unicode_chunk_struct
    {
        unsigned int start;
        // Inclusive; start - 1 for an empty line.
        unsigned int end;
    };

    static constexpr unsigned int kMaxLines = 256;

    OrvFont();
    OrvFont(const OrvFont& other);
    OrvFont& operator=(const OrvFont& other);
    virtual ~OrvFont();

    /// Loads the glyph image into a new texture and builds the material. Throws
    /// OrvException when the font was created already.
    void Create(OrvApplication* application, const OrvFontDesc& desc);
    void LoadTexture();

    void RenderText(const char* text, OrvFontAlign align) const;
    /// At most 256 lines.
    void RenderUnicode(const OrvUnicode& text, OrvFontAlign align) const;
    void RenderUnicodeChunk(const OrvUnicode& line, OrvFontAlign align, unsigned int lineIndex) const;
    /// Lines end before LF, CR LF and NUL; the first line always starts at 0.
    static void GetUnicodeChunks(const OrvUnicode& text, unicode_chunk_struct* chunks, unsigned int maxChunks,
                                 unsigned int& chunkCount);
    /// The grid cell a character code is drawn with.
    static unsigned int GetGlyphCell(unsigned int code);

    void SetSizeCoef(float coefficient) { m_sizeCoef = coefficient; }
    float GetSizeCoef() const { return m_sizeCoef; }
    void SetColor(const OrvColor& color);

    OrvApplication* GetApplication() const { return m_application; }
    OrvTexture* GetTexture() const { return m_texture; }
    OrvColoredTextureMaterial* GetMaterial() const { return m_material; }
    const OrvUnicode& GetFileName() const { return m_fileName; }
    float GetRealSymbolSpacing() const { return m_symbolSpacing; }
    float GetImageHeight() const { return m_imageHeight; }
    float GetImageWidth() const { return m_imageWidth; }
    float GetRealSymbolHeight() const { return m_symbolHeight; }
    float GetRealSymbolWidth() const { return m_symbolWidth; }

private:
    static void InitDefCodePage();

    OrvApplication* m_application;
    OrvTexture* m_texture;
    OrvColoredTextureMaterial* m_material;
    OrvUnicode m_fileName;
    float m_symbolSpacing;
    float m_imageHeight;
    float m_imageWidth;
    float m_symbolHeight;
    float m_symbolWidth;
    float m_sizeCoef;
};

#endif
