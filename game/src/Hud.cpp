#include "Hud.h"

#include "NameField.h"

#include <algorithm>

#include <OrvEngine/OrvApplication.h>
#include <OrvEngine/OrvAutoTextField.h>
#include <OrvEngine/OrvAutoTextFieldDesc.h>
#include <OrvEngine/OrvButton.h>
#include <OrvEngine/OrvColor.h>
#include <OrvEngine/OrvCursor.h>
#include <OrvEngine/OrvCursorDesc.h>
#include <OrvEngine/OrvGameAssetManager.h>
#include <OrvEngine/OrvLabel.h>
#include <OrvEngine/OrvLabelDesc.h>
#include <OrvEngine/OrvMenu.h>
#include <OrvEngine/OrvMenuDesc.h>
#include <OrvEngine/OrvWidgetDesc.h>

namespace
{
// The name row, and the first line of the table in its place after the name is kept.
const float kRowY = 100.0f;
// Room between a panel's edge and what it holds.
const float kPanelMargin = 24.0f;
const float kPanelHalfWidth = 330.0f;
// Room above and below a menu button's label.
const float kButtonMargin = 6.0f;
// The name field's box, from its origin (where the text's first character is centred).
const float kFieldLeft = -16.0f;
const float kFieldRight = 320.0f;
const float kFieldHalfHeight = 18.0f;
// Between the name's label and the field's box.
const float kLabelGap = 14.0f;

std::string Narrow(const OrvUnicode& text)
{
    char narrow[128] = {};
    text.ToCString(narrow, sizeof(narrow), nullptr);
    return narrow;
}

// Moves a label (its text centred in its box) so that its box starts at `left`.
void PlaceFromLeft(OrvLabel* label, float left, float y)
{
    label->SetPosition(OrvVector3D(left + label->GetWidth() * 0.5f, y, 0.0f));
}

void PlaceFromRight(OrvLabel* label, float right, float y)
{
    label->SetPosition(OrvVector3D(right - label->GetWidth() * 0.5f, y, 0.0f));
}

void Show(OrvGameAsset* asset, bool show)
{
    asset->SetRender(show, true);
    asset->SetEnabled(show, true);
}

// Gives a menu's labels room: the font draws each character a cell wide while
// a label's box ends half a cell inside its first and last ones, so each
// button is as wide as the longest label and a whole cell more on either side,
// and a little higher than a line. The buttons stack down from the menu's
// origin, the backing quad around them. The sizes are fixed from then on:
// make the buttons with their longest texts.
void FitMenu(OrvMenu* menu, float cell)
{
    std::vector<OrvButton*> buttons;
    float width = 0.0f;
    float height = 0.0f;
    for (unsigned int i = 0; i < menu->GetChildCount(); ++i)
        if (OrvButton* button = dynamic_cast<OrvButton*>(menu->GetChild(i)))
        {
            buttons.push_back(button);
            width = std::max(width, button->GetLabel()->GetWidth() + 2.0f * cell);
            height = std::max(height, button->GetLabel()->GetHeight() + 2.0f * kButtonMargin);
        }
    for (size_t i = 0; i < buttons.size(); ++i)
    {
        buttons[i]->SetQuad(-width * 0.5f, -height * 0.5f, width * 0.5f, height * 0.5f);
        buttons[i]->SetPosition(OrvVector3D(0.0f, -height * static_cast<float>(i), 0.0f));
    }
    menu->ComputeOptimalSize();
}
}  // namespace

Hud::Hud(OrvApplication* game, OrvFont* font, HudActions* actions) : m_game(game), m_actions(actions)
{
    OrvGameAssetManager* assets = game->GetGameAssetManager();
    // The pointer first: it has moved by the time the other widgets hear of a motion.
    OrvCursorDesc pointer;
    m_cursor = assets->CreateGameAsset<OrvCursor, OrvCursorDesc>(&pointer);
    m_cursor->PlaySpriteAnimation("pointer", false, false);
    game->AddCursor(m_cursor);

    m_score = MakeLabel(font, 0.6f, 255, 220, 80);
    m_time = MakeLabel(font, 0.6f, 255, 255, 255);
    m_news = MakeLabel(font, 0.5f, 170, 230, 255);
    m_table = MakeLabel(font, 0.5f, 255, 255, 255);
    OrvWidgetDesc panel;
    panel.listenToCursors = false;
    panel.position.Set(0, 0, -0.5f);
    m_panel = assets->CreateGameAsset<OrvWidget, OrvWidgetDesc>(&panel);
    m_panel->AttachTo(game->GetHUDRoot());
    // Opaque: nothing of the field shows through the text.
    m_panel->UseColorMaterial(OrvColor(14, 16, 30, 255));

    OrvMenuDesc menu;
    menu.font = font;
    menu.fontSizeCoef = 0.5f;
    m_menu = assets->CreateGameAsset<OrvMenu, OrvMenuDesc>(&menu);
    m_menu->AttachTo(game->GetHUDRoot());
    m_menu->SetBackgroundColor(OrvColor(30, 50, 110, 255));
    m_options = assets->CreateGameAsset<OrvMenu, OrvMenuDesc>(&menu);
    m_options->SetBackgroundColor(OrvColor(110, 50, 30, 255));
    m_resume = m_menu->AddActionButton("Resume", Clicked, this);
    m_optionsButton = m_menu->AddSubMenuButton("Options", m_options);
    m_quit = m_menu->AddActionButton("Quit", Clicked, this);
    // Made with their longer texts, which the menu's size is fitted to.
    m_sound = m_options->AddActionButton("Sound: off", Clicked, this);
    m_fullScreen = m_options->AddActionButton("Full screen: off", Clicked, this);
    const float cell = font->GetRealSymbolWidth() * menu.fontSizeCoef;
    FitMenu(m_menu, cell);
    FitMenu(m_options, cell);
    ShowSound(true);
    m_menu->SetBoundingBoxColor(OrvColor(200, 210, 255, 255), true);

    OrvLabelDesc name;
    name.font = font;
    name.fontSizeCoef = 0.5f;
    name.align = FONT_ALIGN_CENTER;
    name.listenToCursors = false;
    name.fontColor = OrvColor(255, 255, 255, 255);
    name.text = "Your name:";
    m_nameLabel = assets->CreateGameAsset<OrvLabel, OrvLabelDesc>(&name);
    m_nameLabel->AttachTo(game->GetHUDRoot());
    OrvAutoTextFieldDesc field;
    field.font = font;
    field.fontSizeCoef = 0.5f;
    m_name = assets->CreateGameAsset<NameField, OrvAutoTextFieldDesc>(&field);
    m_name->AttachTo(game->GetHUDRoot());
    // Left-aligned text starts at the field's origin: the box reaches right from just before it.
    m_name->SetQuad(kFieldLeft, -kFieldHalfHeight, kFieldRight, kFieldHalfHeight);
    m_name->UseColorMaterial(OrvColor(44, 48, 72, 255));
    m_name->SetMaxLen(12);

    ShowPauseMenu(false);
    ShowPanel(false);
    Show(m_nameLabel, false);
    Show(m_name, false);
    m_name->SetIsEditing(false);
}

OrvLabel* Hud::MakeLabel(OrvFont* font, float coefficient, int red, int green, int blue)
{
    OrvLabelDesc desc;
    desc.font = font;
    desc.fontSizeCoef = coefficient;
    desc.align = FONT_ALIGN_CENTER;
    desc.fontColor = OrvColor(red, green, blue, 255);
    desc.listenToCursors = false;
    OrvLabel* label = m_game->GetGameAssetManager()->CreateGameAsset<OrvLabel, OrvLabelDesc>(&desc);
    label->AttachTo(m_game->GetHUDRoot());
    return label;
}

void Hud::Place(float width, float height)
{
    m_left = -width * 0.5f + 24.0f;
    m_right = width * 0.5f - 24.0f;
    m_top = height * 0.5f - 30.0f;
    PlaceFromLeft(m_score, m_left, m_top);
    PlaceFromRight(m_time, m_right, m_top);
    m_news->SetPosition(OrvVector3D(0, m_top - 44, 0));
    m_menu->SetPosition(OrvVector3D(0, 60, 0));
    m_table->SetPosition(OrvVector3D(0, kRowY, 0));
    // The label and the field's box, centred together.
    const float labelLeft = -(m_nameLabel->GetWidth() + kLabelGap - kFieldLeft + kFieldRight) * 0.5f;
    PlaceFromLeft(m_nameLabel, labelLeft, kRowY);
    m_name->SetPosition(OrvVector3D(labelLeft + m_nameLabel->GetWidth() + kLabelGap - kFieldLeft, kRowY, 0));
}

void Hud::ShowScore(int score)
{
    m_score->SetText(("Score " + std::to_string(score)).c_str());
    PlaceFromLeft(m_score, m_left, m_top);
}

void Hud::ShowTimeLeft(int seconds)
{
    m_time->SetText(("Time " + std::to_string(seconds)).c_str());
    PlaceFromRight(m_time, m_right, m_top);
}

void Hud::ShowNews(const std::string& text)
{
    m_news->SetText(text.c_str());
}

void Hud::ShowSound(bool on)
{
    m_sound->SetText(on ? "Sound: on" : "Sound: off");
    m_options->ComputeOptimalSize();
}

void Hud::ShowFullScreen(bool on)
{
    m_fullScreen->SetText(on ? "Full screen: on" : "Full screen: off");
    m_options->ComputeOptimalSize();
}

void Hud::ShowPauseMenu(bool show)
{
    Show(m_menu, show);
    // The sub-menu opens only from its button.
    if (show)
        Show(m_options, false);
}

void Hud::AskName(const std::vector<std::string>& knownNames)
{
    m_name->ClearPossibleValues();
    for (const std::string& name : knownNames)
        m_name->AddPossibleValue(name.c_str());
    m_name->ClearText();
    // The panel around the name row.
    const float half = kFieldHalfHeight + kPanelMargin;
    m_panel->SetQuad(-kPanelHalfWidth, kRowY - half, kPanelHalfWidth, kRowY + half);
    Show(m_nameLabel, true);
    Show(m_name, true);
    m_name->SetIsEditing(true);
}

std::string Hud::TakeName()
{
    m_name->SetIsEditing(false);
    Show(m_nameLabel, false);
    Show(m_name, false);
    return Narrow(m_name->GetText());
}

bool Hud::IsAskingName() const
{
    return m_name->GetIsEditing();
}

void Hud::ShowTable(const std::string& table)
{
    m_table->SetText(table.c_str());
    if (table.empty())
        return;
    // The panel around every line, the first on the name row; the font draws
    // each line a label's height below the one before.
    size_t lines = static_cast<size_t>(std::count(table.begin(), table.end(), '\n'));
    lines += table.back() != '\n' ? 1 : 0;
    const float line = m_table->GetHeight();
    const float top = kRowY + line * 0.5f + kPanelMargin;
    const float bottom = kRowY - line * (static_cast<float>(lines) - 0.5f) - kPanelMargin;
    m_panel->SetQuad(-kPanelHalfWidth, bottom, kPanelHalfWidth, top);
}

void Hud::ShowPanel(bool show)
{
    Show(m_panel, show);
}

OrvWidget* Hud::GetResumeButton() const
{
    return m_resume;
}

OrvWidget* Hud::GetOptionsButton() const
{
    return m_optionsButton;
}

OrvWidget* Hud::GetSoundButton() const
{
    return m_sound;
}

void Hud::Clicked(OrvWidget* button, OrvCursor*, void* hud)
{
    Hud* self = static_cast<Hud*>(hud);
    if (button == self->m_resume)
        self->m_actions->OnHudAction(HudActions::RESUME);
    else if (button == self->m_sound)
        self->m_actions->OnHudAction(HudActions::TOGGLE_SOUND);
    else if (button == self->m_fullScreen)
        self->m_actions->OnHudAction(HudActions::TOGGLE_FULL_SCREEN);
    else if (button == self->m_quit)
        self->m_actions->OnHudAction(HudActions::QUIT);
}
