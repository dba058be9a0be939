#include <gtest/gtest.h>

#include "OrvAutoTextField.h"
#include "OrvAutoTextFieldDesc.h"
#include "OrvKeyboardEvent.h"
#include "OrvRenderer.h"
#include "OrvTextField.h"
#include "OrvTextFieldDesc.h"
#include "OrvVector2D.h"
#include "OrvWidgetFixture.h"

namespace
{
class OrvTextFieldTest : public OrvWidgetTest
{
protected:
    // 200 × 40 around (400, 300).
    template <class T, class D>
    T* MakeField()
    {
        D desc;
        desc.position.Set(400, 300, 0);
        desc.font = MakeFont(8, 2, 8);
        T* field = Make<T>(desc);
        field->SetDimension(OrvVector2D(200, 40));
        return field;
    }
    // Straight to the listeners, as the keyboard would.
    void Key(OrvKey key, const char* text)
    {
        game.GetInputManager()->ProcessEvent(OrvKeyboardEvent(INPUT_KEY_DOWN, keyboard, key, text));
    }
    void Typed(OrvAutoTextField* field, const char* text)
    {
        field->ClearText();
        for (const char* c = text; *c != 0; ++c)
            Key(KEY_A, std::string(1, *c).c_str());
    }
};
}  // namespace

TEST_F(OrvTextFieldTest, TypingStopsAtTheMaximumLength)
{
    OrvTextField* field = MakeField<OrvTextField, OrvTextFieldDesc>();
    EXPECT_TRUE(field->GetIsEditing()) << "a new field takes what is typed";
    EXPECT_EQ(OrvTextField::kNoMaxLen, field->GetMaxLen());
    field->SetMaxLen(3);
    Type("xyzw");
    EXPECT_EQ("xyz", Text(field->GetText()));
    TypeKey(SDLK_BACKSPACE, 8);
    Type("w");
    EXPECT_EQ("xyw", Text(field->GetText()));

    // Keys without a printable character add nothing.
    TypeKey(SDLK_BACKSPACE, 8);
    TypeKey(SDLK_LEFT);
    TypeKey(SDLK_TAB, 9);
    EXPECT_EQ("xy", Text(field->GetText()));
    for (int i = 0; i < 4; ++i)
        TypeKey(SDLK_BACKSPACE, 8);
    EXPECT_EQ("", Text(field->GetText())) << "Backspace on nothing does nothing";

    field->SetText("hello");
    EXPECT_EQ("hello", Text(field->GetText())) << "set by the game: no limit";
    field->SetMaxLen(0);
    EXPECT_EQ(3u, field->GetMaxLen());
    field->SetMaxLen(2);
    EXPECT_EQ("he", Text(field->GetText()));
    field->SetMaxLen(10);
    EXPECT_EQ("he", Text(field->GetText()));
    EXPECT_EQ(10u, field->GetMaxLen());
}

TEST_F(OrvTextFieldTest, ReturnEndsEditingAndAClickStartsAnew)
{
    OrvTextField* field = MakeField<OrvTextField, OrvTextFieldDesc>();
    Type("ab");
    TypeKey(SDLK_RETURN, 13);
    EXPECT_FALSE(field->GetIsEditing());
    Type("c");
    EXPECT_EQ("ab", Text(field->GetText())) << "not editing: ignored";

    PointAt(250, 300);
    Click();
    EXPECT_EQ("ab", Text(field->GetText())) << "a click beside it";
    PointAt(400, 300);
    Click();
    EXPECT_EQ("", Text(field->GetText()));
    EXPECT_TRUE(field->GetIsEditing());
    Type("d");
    EXPECT_EQ("d", Text(field->GetText()));

    // Drawn with its font, centred on its position in the HUD.
    field->AttachTo(game.GetHUDRoot());
    field->SetPosition(OrvVector3D(0, 0, 0));
    field->UseColorMaterial(OrvColor(0.0f, 0.0f, 1.0f, 1.0f));
    game.GetRenderer()->PreRender();
    game.RenderHUD();
    EXPECT_TRUE(PixelIs(400, 300, 0xFFFFFF)) << "the character";
    EXPECT_TRUE(PixelIs(450, 300, 0x0000FF)) << "its quad";
}

TEST_F(OrvTextFieldTest, CompletionProposesTheShortestValueThatBeginsWithTheText)
{
    OrvAutoTextField* field = MakeField<OrvAutoTextField, OrvAutoTextFieldDesc>();
    for (const char* value : {"apple", "apricot", "ap", "banana"})
        field->AddPossibleValue(value);
    Typed(field, "a");
    EXPECT_EQ("ap", Text(field->GetProposal())) << "the shortest";
    Typed(field, "ap");
    EXPECT_EQ("apple", Text(field->GetProposal())) << "not the equal one; the shorter of the others";
    Typed(field, "b");
    EXPECT_EQ("banana", Text(field->GetProposal()));
    Typed(field, "q");
    EXPECT_EQ("", Text(field->GetProposal()));
    Typed(field, "A");
    EXPECT_EQ("", Text(field->GetProposal())) << "case counts";

    field->ClearPossibleValues();
    EXPECT_EQ(0u, field->GetPossibleValueCount());
    field->AddPossibleValue("abc");
    field->AddPossibleValue("abd");
    field->AddPossibleValue("abc");
    Typed(field, "ab");
    EXPECT_EQ("abc", Text(field->GetProposal())) << "equal lengths: the first added";
    field->RemovePossibleValue("abc");
    field->RemovePossibleValue("zzz");
    EXPECT_EQ(2u, field->GetPossibleValueCount());
    Typed(field, "ab");
    EXPECT_EQ("abd", Text(field->GetProposal())) << "the first abc went: abd comes first now";
    Key(KEY_TAB, "\t");
    EXPECT_EQ("abd", Text(field->GetText())) << "Tab takes the proposal";
    EXPECT_EQ("", Text(field->GetProposal())) << "abd itself proposes nothing more";
    Key(KEY_TAB, "\t");
    EXPECT_EQ("abd", Text(field->GetText())) << "no proposal: Tab changes nothing";

    // No limit and no filter here: Return is typed like the rest.
    field->SetMaxLen(3);
    Key(KEY_RETURN, "\r");
    EXPECT_EQ(4u, field->GetText().Length());
    EXPECT_TRUE(field->GetIsEditing());
    Key(KEY_BACKSPACE, "\b");
    Key(KEY_LEFT, "");
    EXPECT_EQ("abd", Text(field->GetText()));

    field->SetIsEditing(false);
    Key(KEY_B, "b");
    EXPECT_EQ("abd", Text(field->GetText()));
    Typed(field, "");
    EXPECT_EQ("", Text(field->GetProposal())) << "cleared with the text";
}
