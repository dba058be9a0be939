#include "Hud.h"

#include "OrvApplication.h"
#include "OrvAutoTextField.h"
#include "OrvAutoTextFieldDesc.h"
#include "OrvButton.h"
#include "OrvColor.h"
#include "OrvCursor.h"
#include "OrvCursorDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvLabel.h"
#include "OrvLabelDesc.h"
#include "OrvMenu.h"
#include "OrvMenuDesc.h"
#include "OrvWidgetDesc.h"

namespace
{
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
    m_panel->SetQuad(-330, -300, 330, 0);
    m_panel->UseColorMaterial(OrvColor(10, 12, 24, 210));

    OrvMenuDesc menu;
    menu.font = font;
    menu.fontSizeCoef = 0.5f;
    m_menu = assets->CreateGameAsset<OrvMenu, OrvMenuDesc>(&menu);
    m_menu->AttachTo(game->GetHUDRoot());
    m_menu->SetBackgroundColor(OrvColor(30, 50, 110, 230));
    m_options = assets->CreateGameAsset<OrvMenu, OrvMenuDesc>(&menu);
    m_options->SetBackgroundColor(OrvColor(110, 50, 30, 230));
    m_resume = m_menu->AddActionButton("Resume", Clicked, this);
    m_optionsButton = m_menu->AddSubMenuButton("Options", m_options);
    m_quit = m_menu->AddActionButton("Quit", Clicked, this);
    m_sound = m_options->AddActionButton("Sound: on", Clicked, this);
    m_fullScreen = m_options->AddActionButton("Full screen: on", Clicked, this);
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
    m_name = assets->CreateGameAsset<OrvAutoTextField, OrvAutoTextFieldDesc>(&field);
    m_name->AttachTo(game->GetHUDRoot());
    // Left-aligned text starts at the field's origin: the box reaches right from just before it.
    m_name->SetQuad(-16, -18, 320, 18);
    m_name->UseColorMaterial(OrvColor(30, 30, 40, 230));
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
    m_table->SetPosition(OrvVector3D(0, -110, 0));
    PlaceFromLeft(m_nameLabel, -230, -40);
    m_name->SetPosition(OrvVector3D(-230 + m_nameLabel->GetWidth() + 30, -40, 0));
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
