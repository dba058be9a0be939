#ifndef ORV_LABEL_H
#define ORV_LABEL_H

#include "OrvColor.h"
#include "OrvFont.h"
#include "OrvUnicode.h"
#include "OrvWidget.h"

struct OrvLabelDesc;

/// A line of text drawn with a bitmap font. Its quad (which it does not draw)
/// is the text's extent while automatic size is on, so that cursors find it.
class OrvLabel : public OrvWidget
{
public:
    OrvLabel();
    ~OrvLabel() override;

    /// Its children around its text, as any asset does; no quad.
    void Render() override;
    /// The text with the label's colour, size and alignment; nothing without a font.
    void RenderElements() const override;
    using OrvWidget::Create;
    /// The widget, the text settings, the size, then a colour material of the
    /// application's shelf in the background colour (OrvRendererException
    /// when the shelf has no renderer).
    virtual void Create(OrvLabelDesc* desc);

    /// Resizes when automatic size is on.
    void SetText(const OrvUnicode& text);
    OrvUnicode GetText() const { return m_text; }
    void SetFont(OrvFont* font) { m_font = font; }
    OrvFont* GetFont() const { return m_font; }
    void SetAlign(OrvFontAlign align) { m_align = align; }
    float GetFontSizeCoef() const { return m_fontSizeCoef; }
    void SetFontColor(const OrvColor& color) { m_fontColor = color; }
    OrvColor GetFontColor() const { return m_fontColor; }

    /// n characters of the font's cells at the label's size: n × width +
    /// (n − 1) × spacing wide, twice the cell height high, centred on the
    /// origin. Nothing without a font.
    void ComputeOptimalSize();

protected:
    OrvUnicode m_text;
    OrvFont* m_font;
    OrvFontAlign m_align;
    float m_fontSizeCoef;
    OrvColor m_fontColor;
};

#endif
