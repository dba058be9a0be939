#include "OrvLabel.h"

#include "OrvLabelDesc.h"

OrvLabelDesc::OrvLabelDesc()
    : OrvWidgetDesc(), text(""), font(nullptr), backgroundColor(0.0f, 0.0f, 0.0f, 0.0f), align(FONT_ALIGN_LEFT),
      fontSizeCoef(1.0f), fontColor(0.0f, 0.0f, 0.0f, 1.0f)
{
}

OrvLabel::OrvLabel()
    : OrvWidget(), m_text(""), m_font(nullptr), m_align(FONT_ALIGN_LEFT), m_fontSizeCoef(1.0f),
      m_fontColor(0.0f, 0.0f, 0.0f, 1.0f)
{
}

OrvLabel::~OrvLabel() = default;

void OrvLabel::Create(OrvLabelDesc* desc)
{
    OrvWidget::Create(desc);
    m_text = desc->text;
    m_font = desc->font;
    m_align = desc->align;
    m_fontSizeCoef = desc->fontSizeCoef;
    m_fontColor = desc->fontColor;
    if (m_autoSize)
        ComputeOptimalSize();
    UseColorMaterial(desc->backgroundColor);
}

void OrvLabel::SetText(const OrvUnicode& text)
{
    m_text = text;
    if (m_autoSize)
        ComputeOptimalSize();
}

void OrvLabel::ComputeOptimalSize()
{
    if (m_font == nullptr)
        return;
    const float width = m_font->GetRealSymbolWidth() * m_fontSizeCoef;
    const float spacing = m_font->GetRealSymbolSpacing() * m_fontSizeCoef;
    const float height = m_font->GetRealSymbolHeight() * m_fontSizeCoef;
    const unsigned int length = m_text.Length();
    // An empty text has no extent (rather than a negative one).
    const float extent = length == 0 ? 0.0f
                                     : static_cast<float>(length) * width + static_cast<float>(length - 1) * spacing;
    SetQuad(-extent * 0.5f, -height, extent * 0.5f, height);
}

void OrvLabel::Render()
{
    RenderSubtree(false);
}

void OrvLabel::RenderElements() const
{
    if (m_font == nullptr)
        return;
    m_font->SetColor(m_fontColor);
    m_font->SetSizeCoef(m_fontSizeCoef);
    m_font->RenderUnicode(m_text, m_align);
}
