#include "OrvTextField.h"

#include "OrvKeyboard.h"
#include "OrvKeyboardEvent.h"
#include "OrvTextFieldDesc.h"

OrvTextFieldDesc::OrvTextFieldDesc()
    : OrvWidgetDesc(), font(nullptr), isEditing(true), align(FONT_ALIGN_LEFT), fontColor(1.0f, 1.0f, 1.0f, 1.0f),
      fontSizeCoef(1.0f)
{
}

OrvTextField::OrvTextField()
    : OrvWidget(), m_maxLen(kNoMaxLen), m_font(nullptr), m_text(""), m_editing(true), m_align(FONT_ALIGN_LEFT),
      m_fontColor(1.0f, 1.0f, 1.0f, 1.0f), m_fontSizeCoef(1.0f)
{
}

OrvTextField::~OrvTextField() = default;

void OrvTextField::Create(OrvTextFieldDesc* desc)
{
    OrvWidget::Create(desc);
    m_font = desc->font;
    m_editing = desc->isEditing;
    m_align = desc->align;
    m_fontColor = desc->fontColor;
    m_fontSizeCoef = desc->fontSizeCoef;
    AddInputDevice(FindFirstDevice([](const OrvInputDevice* d) { return dynamic_cast<const OrvKeyboard*>(d) != nullptr; }));
}

void OrvTextField::ProcessInputEvent(const OrvInputEvent& event)
{
    OrvWidget::ProcessInputEvent(event);
    if (!m_editing || event.GetType() != INPUT_KEY_DOWN)
        return;
    const OrvKeyboardEvent* key = dynamic_cast<const OrvKeyboardEvent*>(&event);
    if (key == nullptr)
        return;
    switch (key->GetKey())
    {
    case KEY_BACKSPACE: RemoveLastCharacter(m_text); break;
    case KEY_RETURN: m_editing = false; break;
    default:
    {
        if (m_maxLen != kNoMaxLen && m_text.Length() >= m_maxLen)
            break;
        // Only what types a printable character.
        const OrvUnicode typed = key->GetUnicode();
        if (typed.Length() > 0 && typed.GetData()[0] > 31)
            m_text += typed;
        break;
    }
    }
}

void OrvTextField::RemoveLastCharacter(OrvUnicode& text)
{
    const unsigned int length = text.Length();
    if (length == 0)
        return;
    text.AppendNullCharIfMissing();
    text.Trunk(length);
}

void OrvTextField::CursorPressedAndReleased(OrvCursor* cursor)
{
    OrvWidget::CursorPressedAndReleased(cursor);
    ClearText();
    m_editing = true;
}

void OrvTextField::ClearText()
{
    m_text = "";
}

void OrvTextField::SetText(const OrvUnicode& text)
{
    m_text = text;
}

void OrvTextField::SetMaxLen(unsigned int maxLen)
{
    if (maxLen == 0)
        return;
    if (maxLen < m_maxLen && m_text.Length() > maxLen)
    {
        m_text.AppendNullCharIfMissing();
        m_text.Trunk(maxLen + 1);
    }
    m_maxLen = maxLen;
}

void OrvTextField::ComputeOptimalSize() {}

void OrvTextField::RenderElements() const
{
    if (m_font == nullptr)
        return;
    m_font->SetColor(m_fontColor);
    m_font->SetSizeCoef(m_fontSizeCoef);
    m_font->RenderUnicode(m_text, m_align);
}
