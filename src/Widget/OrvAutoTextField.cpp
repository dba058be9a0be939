#include "OrvAutoTextField.h"

#include <string>

#include "OrvAutoTextFieldDesc.h"
#include "OrvKeyboardEvent.h"
#include "OrvRenderer.h"

OrvAutoTextFieldDesc::OrvAutoTextFieldDesc() : OrvTextFieldDesc() {}

OrvAutoTextField::OrvAutoTextField() : OrvTextField(), m_proposal("") {}

OrvAutoTextField::~OrvAutoTextField() = default;

void OrvAutoTextField::Create(OrvAutoTextFieldDesc* desc)
{
    OrvTextField::Create(desc);
}

void OrvAutoTextField::ProcessInputEvent(const OrvInputEvent& event)
{
    OrvWidget::ProcessInputEvent(event);
    if (!m_editing)
        return;
    const OrvKeyboardEvent* key =
        event.GetType() == INPUT_KEY_DOWN ? dynamic_cast<const OrvKeyboardEvent*>(&event) : nullptr;
    if (key != nullptr)
    {
        if (key->GetKey() == KEY_TAB)
        {
            if (m_proposal.Length() > 0)
                m_text = m_proposal;
        }
        else if (key->GetKey() == KEY_BACKSPACE)
            RemoveLastCharacter(m_text);
        else
        {
            const OrvUnicode typed = key->GetUnicode();
            if (typed.Length() > 0 && typed.GetData()[0] != 0)
                m_text += typed;
        }
    }
    m_proposal = ComputePossibleValue();
}

void OrvAutoTextField::ClearText()
{
    OrvTextField::ClearText();
    m_proposal = "";
}

void OrvAutoTextField::AddPossibleValue(const OrvUnicode& value)
{
    m_possibleValues.Add(value);
}

void OrvAutoTextField::RemovePossibleValue(const OrvUnicode& value)
{
    const int index = m_possibleValues.Find(value);
    if (index >= 0)
        m_possibleValues.RemoveIndex(static_cast<unsigned int>(index));
}

void OrvAutoTextField::ClearPossibleValues()
{
    m_possibleValues.RemoveAll();
}

OrvUnicode OrvAutoTextField::ComputePossibleValue() const
{
    const unsigned int length = m_text.Length();
    const OrvUnicode* chosen = nullptr;
    for (const OrvUnicode& value : m_possibleValues)
    {
        // Longer than the text and beginning with it, character for character.
        const unsigned int valueLength = value.Length();
        if (length == 0 || valueLength <= length ||
            std::char_traits<char16_t>::compare(value.GetData(), m_text.GetData(), length) != 0)
            continue;
        if (chosen == nullptr || valueLength < chosen->Length())
            chosen = &value;
    }
    return chosen != nullptr ? *chosen : OrvUnicode("");
}

void OrvAutoTextField::RenderElements() const
{
    OrvTextField::RenderElements();
    OrvRenderer* renderer = GetRenderer();
    if (m_font == nullptr || renderer == nullptr || m_proposal.Length() == 0)
        return;
    // The proposal follows the text, at the font's own size.
    const float length = static_cast<float>(m_text.Length());
    renderer->PushMatrix(TRANS_MATRIX_MODEL);
    renderer->TranslateMatrix(TRANS_MATRIX_MODEL,
                              OrvVector3D(length * m_font->GetRealSymbolWidth() +
                                              (length - 1.0f) * m_font->GetRealSymbolSpacing(),
                                          m_font->GetRealSymbolHeight(), 0.0f));
    m_font->RenderUnicode(m_proposal, FONT_ALIGN_LEFT);
    renderer->DiscardMatrix(TRANS_MATRIX_MODEL);
}
