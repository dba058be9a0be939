#include "GameHud.h"

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

namespace
{
template <class T, class D>
T* Make(OrvApplication* game, D& desc)
{
    T* widget = game->GetGameAssetManager()->CreateGameAsset<T, D>(&desc);
    widget->AttachTo(game->GetHUDRoot());
    return widget;
}

// The text a menu button was made with: its type is "Button_" and the text.
std::string ButtonText(const OrvWidget* button)
{
    char text[64] = {};
    button->GetType().ToCString(text, sizeof(text), nullptr);
    return std::string(text).substr(7);
}

std::string Narrow(const OrvUnicode& text)
{
    char narrow[128] = {};
    text.ToCString(narrow, sizeof(narrow), nullptr);
    return narrow;
}
}  // namespace

GameHud::GameHud(OrvApplication* game, OrvFont* font, HudActions* actions) : m_actions(actions)
{
    // The pointer first: it has moved by the time the other widgets look at a motion.
    OrvCursorDesc pointer;
    m_cursor = game->GetGameAssetManager()->CreateGameAsset<OrvCursor, OrvCursorDesc>(&pointer);
    m_cursor->PlaySpriteAnimation("pointer", false, false);
    game->AddCursor(m_cursor);

    OrvMenuDesc menu;
    menu.font = font;
    menu.fontSizeCoef = 0.5f;
    m_menu = Make<OrvMenu>(game, menu);
    m_menu->SetBackgroundColor(OrvColor(30, 50, 110, 220));
    m_options = game->GetGameAssetManager()->CreateGameAsset<OrvMenu, OrvMenuDesc>(&menu);
    m_options->SetBackgroundColor(OrvColor(110, 50, 30, 220));
    for (const char* text : {"Faster", "Slower"})
        m_menu->AddActionButton(text, Clicked, this);
    m_menu->AddSubMenuButton("Options", m_options);
    m_menu->AddActionButton("Quit", Clicked, this);
    for (const char* text : {"Blip", "Pause", "Debug"})
        m_options->AddActionButton(text, Clicked, this);
    // Each button's outline.
    m_menu->SetBoundingBoxColor(OrvColor(200, 210, 255, 255), true);

    OrvLabelDesc status;
    status.font = font;
    status.fontSizeCoef = 0.5f;
    status.fontColor = OrvColor(255, 240, 120, 255);
    status.align = FONT_ALIGN_CENTER;
    status.text = "Rest on Options, click a button, type a name";
    m_status = Make<OrvLabel>(game, status);

    status.text = "Name";
    status.fontColor = OrvColor(255, 255, 255, 255);
    m_nameLabel = Make<OrvLabel>(game, status);

    OrvAutoTextFieldDesc name;
    name.font = font;
    name.fontSizeCoef = 0.5f;
    m_name = Make<OrvAutoTextField>(game, name);
    // Left-aligned text starts at the field's origin: the box reaches right from just before it.
    m_name->SetQuad(-16, -18, 300, 18);
    m_name->UseColorMaterial(OrvColor(30, 30, 40, 220));
    m_name->SetMaxLen(16);
    for (const char* known : {"Arthur", "Ariadne", "Bertram", "Beatrix", "Cedric"})
        m_name->AddPossibleValue(known);
}

void GameHud::Place(float width, float height)
{
    m_left = -width * 0.5f + 30.0f;
    const float bottom = -height * 0.5f;
    m_menu->SetPosition(OrvVector3D(m_left + 80, height * 0.5f - 110, 0));
    m_status->SetPosition(OrvVector3D(m_left + m_status->GetWidth() * 0.5f, bottom + 130, 0));
    m_nameLabel->SetPosition(OrvVector3D(m_left + m_nameLabel->GetWidth() * 0.5f, bottom + 40, 0));
    m_name->SetPosition(OrvVector3D(m_left + m_nameLabel->GetWidth() + 40, bottom + 40, 0));
}

void GameHud::SetStatus(const std::string& text)
{
    // Centred text in a box as wide as the text: moved to keep its left edge.
    m_status->SetText(text.c_str());
    OrvVector3D position = m_status->GetPosition();
    position.X = m_left + m_status->GetWidth() * 0.5f;
    m_status->SetPosition(position);
}

bool GameHud::IsTypingName() const
{
    return m_name->GetIsEditing();
}

std::string GameHud::EnterName()
{
    const std::string name = Narrow(m_name->GetText());
    m_name->SetIsEditing(false);
    if (!name.empty())
    {
        m_name->RemovePossibleValue(name.c_str());
        m_name->AddPossibleValue(name.c_str());
    }
    return name;
}

OrvWidget* GameHud::GetButton(const std::string& text) const
{
    for (const OrvMenu* menu : {m_menu, m_options})
        for (OrvGameAsset* child : menu->GetChildren())
            if (ButtonText(static_cast<OrvWidget*>(child)) == text)
                return static_cast<OrvWidget*>(child);
    return nullptr;
}

void GameHud::Clicked(OrvWidget* button, OrvCursor*, void* hud)
{
    GameHud* self = static_cast<GameHud*>(hud);
    self->m_actions->OnMenu(ButtonText(button));
}
