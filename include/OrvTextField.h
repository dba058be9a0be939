#ifndef ORV_TEXT_FIELD_H
#define ORV_TEXT_FIELD_H

#include "OrvColor.h"
#include "OrvFont.h"
#include "OrvUnicode.h"
#include "OrvWidget.h"

struct OrvTextFieldDesc;

/// One line of typed text. While editing, each printable character typed on
/// the input manager's first keyboard is appended (up to the maximum length),
/// Backspace removes the last one and Return ends editing. A click empties the
/// field and starts editing again. There is no caret and no selection. It keeps
/// the size it is given (SetWidth, SetHeight, SetDimension).
class OrvTextField : public OrvWidget
{
public:
    static constexpr unsigned int kNoMaxLen = 0xFFFFFFFFu;

    OrvTextField();
    ~OrvTextField() override;

    /// The text with the field's colour, size and alignment; nothing without a font.
    void RenderElements() const override;
    /// The cursors first, then the keys while editing.
    void ProcessInputEvent(const OrvInputEvent& event) override;
    /// The callback, then an empty text and editing.
    void CursorPressedAndReleased(OrvCursor* cursor) override;
    using OrvWidget::Create;
    /// The widget, the text settings, then the input manager's first keyboard:
    /// OrvInputException "You tried to add an invalid device." without one. The
    /// field hears the keyboard only when it is cursor-sensitive (registered).
    virtual void Create(OrvTextFieldDesc* desc);
    virtual void ClearText();

    /// Not checked against the maximum length.
    void SetText(const OrvUnicode& text);
    OrvUnicode GetText() const { return m_text; }
    void SetFont(OrvFont* font) { m_font = font; }
    OrvFont* GetFont() const { return m_font; }
    float GetFontSizeCoef() const { return m_fontSizeCoef; }
    void SetFontColor(const OrvColor& color) { m_fontColor = color; }
    void SetIsEditing(bool editing) { m_editing = editing; }
    bool GetIsEditing() const { return m_editing; }
    /// 0 is ignored; a lower maximum cuts the text to it.
    void SetMaxLen(unsigned int maxLen);
    unsigned int GetMaxLen() const { return m_maxLen; }
    /// A text field keeps the size it was given.
    void ComputeOptimalSize();

protected:
    /// Removes the last character, when there is one.
    static void RemoveLastCharacter(OrvUnicode& text);

    unsigned int m_maxLen;
    OrvFont* m_font;
    OrvUnicode m_text;
    bool m_editing;
    OrvFontAlign m_align;
    OrvColor m_fontColor;
    float m_fontSizeCoef;
};

#endif
