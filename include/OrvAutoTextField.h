#ifndef ORV_AUTO_TEXT_FIELD_H
#define ORV_AUTO_TEXT_FIELD_H

#include "OrvTObjectArray.h"
#include "OrvTextField.h"

struct OrvAutoTextFieldDesc;

/// A text field that proposes a completion from a list of possible values: the
/// shortest value that begins with the typed text (and is not equal to it),
/// the first added among equals. Tab takes the proposal; it is drawn after
/// the text. This field applies no maximum length and no filter to what is
/// typed: Return is appended like any character and does not end editing.
class OrvAutoTextField : public OrvTextField
{
public:
    OrvAutoTextField();
    ~OrvAutoTextField() override;

    void RenderElements() const override;
    /// The cursors first; then, while editing, the keys, and after any event
    /// the proposal again.
    void ProcessInputEvent(const OrvInputEvent& event) override;
    /// The text and the proposal.
    void ClearText() override;
    using OrvTextField::Create;
    virtual void Create(OrvAutoTextFieldDesc* desc);

    /// Duplicates are kept.
    void AddPossibleValue(const OrvUnicode& value);
    /// The first equal value; nothing when none is.
    void RemovePossibleValue(const OrvUnicode& value);
    void ClearPossibleValues();
    unsigned int GetPossibleValueCount() const { return m_possibleValues.GetCount(); }
    OrvUnicode ComputePossibleValue() const;
    OrvUnicode GetProposal() const { return m_proposal; }

protected:
    OrvTObjectArray<OrvUnicode> m_possibleValues;
    OrvUnicode m_proposal;
};

#endif
