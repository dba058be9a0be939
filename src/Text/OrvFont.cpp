#include "OrvFont.h"

#include "OrvApplication.h"
#include "OrvColor.h"
#include "OrvColoredTextureMaterial.h"
#include "OrvException.h"
#include "OrvFileManager.h"
#include "OrvFontDesc.h"
#include "OrvPass.h"
#include "OrvRenderer.h"
#include "OrvTGAImageFile.h"
#include "OrvTextureManager.h"
#include "OrvVertex.h"

namespace
{
const char* const kSource = "src/Text/OrvFont";
const unsigned char kUnmapped = 255;
// The cell drawn for codes without a glyph.
const unsigned int kMissingCell = 254;

struct GlyphTable
{
    unsigned char entries[256];
    bool initialised = false;
    GlyphTable()
    {
        for (unsigned char& entry : entries)
            entry = kUnmapped;
    }
};

GlyphTable& Glyphs()
{
    static GlyphTable table;
    return table;
}

int Truncate(float value)
{
    return static_cast<int>(value);
}
}  // namespace

OrvFontDesc::OrvFontDesc()
    : fileName(""), symbolSpacing(0.0f), imageHeight(0.0f), imageWidth(0.0f), symbolHeight(0.0f), symbolWidth(0.0f),
      sizeCoef(1.0f)
{
}

OrvFont::OrvFont()
    : m_application(nullptr), m_texture(nullptr), m_material(nullptr), m_fileName(""), m_symbolSpacing(0.0f),
      m_imageHeight(0.0f), m_imageWidth(0.0f), m_symbolHeight(0.0f), m_symbolWidth(0.0f), m_sizeCoef(1.0f)
{
    InitDefCodePage();
}

OrvFont::OrvFont(const OrvFont&) : OrvFont()
{
    ORV_THROW(OrvException, "copy constructor forbiden", kSource);
}

OrvFont& OrvFont::operator=(const OrvFont&)
{
    ORV_THROW(OrvException, "operator = forbiden", kSource);
}

OrvFont::~OrvFont()
{
    delete m_material;
    m_material = nullptr;
    if (m_texture != nullptr)
        m_texture->RemoveUser();
    m_texture = nullptr;
}

void OrvFont::InitDefCodePage()
{
    GlyphTable& table = Glyphs();
    if (table.initialised)
        return;
    for (unsigned int code = 32; code < 256; ++code)
        table.entries[code] = static_cast<unsigned char>(code - 31);
    table.initialised = true;
}

unsigned int OrvFont::GetGlyphCell(unsigned int code)
{
    InitDefCodePage();
    if (code > 255)
        return kMissingCell;
    return static_cast<unsigned int>(Glyphs().entries[code]) - 1u;
}

void OrvFont::Create(OrvApplication* application, const OrvFontDesc& desc)
{
    if (m_application != nullptr)
        ORV_THROW(OrvException, "Create() - non NULL app", kSource);
    if (m_texture != nullptr)
        ORV_THROW(OrvException, "Create() - non NULL tex", kSource);
    if (m_material != nullptr)
        ORV_THROW(OrvException, "Create() - non NULL mat", kSource);
    m_application = application;
    m_texture = application->GetTextureManager()->CreateTexture();
    m_fileName = desc.fileName;
    LoadTexture();
    m_texture->AddUser();
    m_material = new OrvColoredTextureMaterial(application->GetRenderer(), m_texture, OrvColor(1.0f, 1.0f, 1.0f, 1.0f));
    m_symbolSpacing = desc.symbolSpacing;
    m_imageHeight = desc.imageHeight;
    m_imageWidth = desc.imageWidth;
    m_symbolHeight = desc.symbolHeight;
    m_symbolWidth = desc.symbolWidth;
    m_sizeCoef = desc.sizeCoef;
    if (OrvPass* pass = m_material->GetPass(0))
    {
        pass->SetMipMapMethod(MIPMAP_LINEAR);
        pass->SetWrapMethod(WRAP_CLAMP);
    }
}

void OrvFont::LoadTexture()
{
    if (m_application == nullptr || m_texture == nullptr)
        return;
    OrvFileManager* files = m_application->GetFileManager();
    OrvImageFile* image = dynamic_cast<OrvImageFile*>(files->GetFile(m_fileName));
    if (image == nullptr)
        image = files->GetOrLoad<OrvTGAImageFile>(m_fileName);
    if (image == nullptr)
        ORV_THROW(OrvException, "The font's glyph file isn't an image", kSource);
    m_texture->SetDataFromImage(image);
    files->DeleteOrvFile(image);
}

void OrvFont::SetColor(const OrvColor& color)
{
    if (m_material != nullptr)
        m_material->SetColor(color);
}

void OrvFont::GetUnicodeChunks(const OrvUnicode& text, unicode_chunk_struct* chunks, unsigned int maxChunks,
                               unsigned int& chunkCount)
{
    chunkCount = 0;
    const unsigned int length = text.Length();
    if (chunks == nullptr || maxChunks == 0 || length == 0)
        return;
    const char16_t* units = text.GetData();
    // Control characters at the very start belong to the first line.
    unsigned int i = 0;
    while (i < length && units[i] <= 31)
        ++i;
    unsigned int start = 0;
    for (;; ++i)
    {
        const bool atEnd = i >= length || units[i] == 0;
        const bool lineFeed = !atEnd && units[i] == 10;
        const bool crLf = !atEnd && units[i] == 13 && i + 1 < length && units[i + 1] == 10;
        if (!atEnd && !lineFeed && !crLf)
            continue;
        chunks[chunkCount].start = start;
        chunks[chunkCount].end = i - 1;
        if (++chunkCount == maxChunks || atEnd)
            return;
        if (crLf)
            ++i;
        start = i + 1;
    }
}

void OrvFont::RenderText(const char* text, OrvFontAlign align) const
{
    RenderUnicode(OrvUnicode(text), align);
}

void OrvFont::RenderUnicode(const OrvUnicode& text, OrvFontAlign align) const
{
    unicode_chunk_struct lines[kMaxLines];
    unsigned int count = 0;
    GetUnicodeChunks(text, lines, kMaxLines, count);
    // One line, the whole text (a label's, every frame): drawn without a copy.
    if (count == 1 && lines[0].start == 0 && lines[0].end + 1 == text.Length())
    {
        RenderUnicodeChunk(text, align, 0);
        return;
    }
    OrvUnicode line;
    for (unsigned int i = 0; i < count; ++i)
    {
        line.Clear();
        if (lines[i].end + 1 > lines[i].start)
            text.SubUnicode(line, lines[i].start, lines[i].end - lines[i].start + 1);
        RenderUnicodeChunk(line, align, i);
    }
}

void OrvFont::RenderUnicodeChunk(const OrvUnicode& line, OrvFontAlign align, unsigned int lineIndex) const
{
    OrvRenderer* renderer = m_application != nullptr ? m_application->GetRenderer() : nullptr;
    if (renderer == nullptr || m_material == nullptr || m_symbolWidth <= 0.0f || m_symbolHeight <= 0.0f)
        return;
    const float columns = m_imageWidth / m_symbolWidth;
    const float rows = m_imageHeight / m_symbolHeight;
    const float uStep = 1.0f / columns;
    const float vStep = 1.0f / rows;
    const unsigned int columnCount = static_cast<unsigned int>(columns);
    const float w = m_symbolWidth * m_sizeCoef;
    const float h = m_symbolHeight * m_sizeCoef;
    const float s = m_symbolSpacing * m_sizeCoef;
    const unsigned int length = line.Length();
    if (length == 0 || columnCount == 0)
        return;
    float xOffset = 0.0f;
    if (align == FONT_ALIGN_CENTER)
    {
        const float before = static_cast<float>(length - 1);
        xOffset = static_cast<float>(Truncate(before * w) + Truncate(before * s)) * 0.5f;
    }
    const float y = static_cast<float>(lineIndex) * h * -2.0f;
    const char16_t* units = line.GetData();
    OrvVertex vertex;
    vertex.SetNormal(OrvVector3D(0.0f, 1.0f, 0.0f));
    for (unsigned int pass = 0; pass < m_material->GetPassCount(); ++pass)
    {
        m_material->ActivatePass(pass);
        for (unsigned int i = 0; i < length; ++i)
        {
            const unsigned int cell = GetGlyphCell(units[i]);
            const float column = static_cast<float>(cell % columnCount);
            const float row = static_cast<float>(cell / columnCount);
            const float x = (w + s) * static_cast<float>(i) - xOffset;
            const float u0 = column * uStep, u1 = (column + 1.0f) * uStep;
            const float vTop = 1.0f - row * vStep, vBottom = 1.0f - (row + 1.0f) * vStep;
            const float corners[4][4] = {
                {x - w, y - h, u0, vBottom}, {x - w, y + h, u0, vTop}, {x + w, y + h, u1, vTop}, {x + w, y - h, u1, vBottom}};
            renderer->Begin(RENDER_MODE_QUADS);
            for (const auto& c : corners)
            {
                vertex.SetPosition(OrvVector3D(c[0], c[1], 0.0f));
                vertex.SetUV(OrvVector2D(c[2], c[3]));
                renderer->Vertex(&vertex);
            }
            renderer->End();
        }
    }
}
