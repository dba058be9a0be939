#include "NameField.h"

#include <OrvEngine/OrvFont.h>
#include <OrvEngine/OrvMatrix.h>
#include <OrvEngine/OrvRenderer.h>

void NameField::RenderElements() const
{
    OrvTextField::RenderElements();
    OrvRenderer* renderer = GetRenderer();
    if (m_font == nullptr || renderer == nullptr || m_proposal.Length() == 0)
        return;
    // The font puts character i at i × (width + spacing) × coefficient from the
    // first one; a centred line is shifted left by half its length, in whole
    // pixels per part as the font does.
    const float width = m_font->GetRealSymbolWidth() * m_fontSizeCoef;
    const float spacing = m_font->GetRealSymbolSpacing() * m_fontSizeCoef;
    const unsigned int length = m_text.Length();
    float x = static_cast<float>(length + 1) * (width + spacing);
    if (m_align == FONT_ALIGN_CENTER && length > 0)
    {
        const float before = static_cast<float>(length - 1);
        x -= static_cast<float>(static_cast<int>(before * width) + static_cast<int>(before * spacing)) * 0.5f;
    }
    OrvColor dimmed = m_fontColor;
    dimmed.SetAlpha(dimmed.GetAlpha() * 0.5f);
    m_font->SetColor(dimmed);
    m_font->SetSizeCoef(m_fontSizeCoef);
    renderer->PushMatrix(TRANS_MATRIX_MODEL);
    renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(x, 0.0f, 0.0f));
    m_font->RenderUnicode(m_proposal, FONT_ALIGN_LEFT);
    renderer->DiscardMatrix(TRANS_MATRIX_MODEL);
}
