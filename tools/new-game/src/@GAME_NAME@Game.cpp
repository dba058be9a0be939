#include "@GAME_NAME@Game.h"

#include <algorithm>
#include <cstdio>

#include <OrvEngine/OrvColor.h>
#include <OrvEngine/OrvFileManager.h>
#include <OrvEngine/OrvFont.h>
#include <OrvEngine/OrvFontDesc.h>
#include <OrvEngine/OrvGameAssetManager.h>
#include <OrvEngine/OrvKeyboard.h>
#include <OrvEngine/OrvLabel.h>
#include <OrvEngine/OrvLabelDesc.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvSoundManager.h>
#include <OrvEngine/OrvWidget.h>
#include <OrvEngine/OrvWidgetDesc.h>

namespace
{
// Pixels a second.
const float kWalkerSpeed = 240.0f;
// The sprites are 64 × 64 texels, drawn twice as large.
const float kWalkerScale = 2.0f;
}  // namespace

OrvVector3D @GAME_NAME@Game::GetWalkerPosition() const
{
    return m_walker != nullptr ? m_walker->GetPosition() : OrvVector3D(0, 0, 0);
}

void @GAME_NAME@Game::OnInitialise()
{
    // Every file the game asks for is looked for in its archive first.
    GetFileManager()->AddBigFile("@GAME_NAME@.vbf");
    // Keyboard, mouse (which labels listen to) and joypad: the input manager owns them.
    AddStandardDevices(&m_keyboard);

    // Font.tga holds codes 32 to 255 in 16 × 16 cells of 32 pixels (orvmedia font).
    OrvFontDesc font;
    font.fileName = "Font.tga";
    font.imageWidth = font.imageHeight = 512;
    font.symbolWidth = font.symbolHeight = 32;
    m_font = new OrvFont();
    m_font->Create(this, font);

    // The walker is a widget that shows a sprite animation and does not follow
    // the mouse. In the head-up display's tree, positions count pixels from
    // the middle of the window.
    OrvWidgetDesc walker;
    walker.listenToCursors = false;
    walker.maxSpeed = kWalkerSpeed;
    walker.scale = OrvVector3D(kWalkerScale, kWalkerScale, 1);
    m_walker = GetGameAssetManager()->CreateGameAsset<OrvWidget, OrvWidgetDesc>(&walker);
    m_walker->AttachTo(GetHUDRoot());
    m_walker->PlaySpriteAnimation("stand", false, false);

    OrvLabelDesc label;
    label.font = m_font;
    label.fontSizeCoef = 0.5f;
    label.fontColor = OrvColor(120, 220, 255, 255);
    label.align = FONT_ALIGN_CENTER;
    label.position = OrvVector3D(0, 60.0f - 0.5f * static_cast<float>(GetRenderer()->GetViewportHeight()), 0);
    m_label = GetGameAssetManager()->CreateGameAsset<OrvLabel, OrvLabelDesc>(&label);
    m_label->AttachTo(GetHUDRoot());

    GetSoundManager()->PlaySound("Hello.wav", 0.5f, false, 0);
}

void @GAME_NAME@Game::OnTerminate()
{
    // The game assets go with the engine; the font holds a texture, and so
    // goes while the texture manager is still there.
    delete m_font;
    m_font = nullptr;
}

void @GAME_NAME@Game::OnRenderHUD()
{
    // Here the model matrix counts pixels from the window's lower-left corner.
    OrvRenderer* renderer = GetRenderer();
    const float width = static_cast<float>(renderer->GetViewportWidth());
    const float height = static_cast<float>(renderer->GetViewportHeight());
    m_font->SetSizeCoef(1.0f);
    m_font->SetColor(OrvColor(255, 220, 0, 255));
    renderer->PushMatrix(TRANS_MATRIX_MODEL);
    renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(width * 0.5f, height - 60.0f, 0));
    m_font->RenderText("@GAME_NAME@", FONT_ALIGN_CENTER);
    renderer->DiscardMatrix(TRANS_MATRIX_MODEL);
}

void @GAME_NAME@Game::Update(float seconds)
{
    if (m_keyboard->IsKeyDown(KEY_ESCAPE))
        Exit();
    Steer();
    // Reads the devices, moves and animates the assets, runs the timers.
    OrvApplication::Update(seconds);
    KeepOnScreen();

    char text[64];
    const OrvVector3D at = m_walker->GetPosition();
    std::snprintf(text, sizeof(text), "Arrow keys: the walker is at %d, %d", static_cast<int>(at.X),
                  static_cast<int>(at.Y));
    m_label->SetText(text);

    ++m_turns;
    if (m_turnLimit != 0 && m_turns >= m_turnLimit)
        Exit();
}

void @GAME_NAME@Game::Steer()
{
    auto held = [this](OrvKey key) { return m_keyboard->IsKeyDown(key) ? 1.0f : 0.0f; };
    OrvVector3D direction(held(KEY_RIGHT) - held(KEY_LEFT), held(KEY_UP) - held(KEY_DOWN), 0);
    if (direction.LengthSquared() > 1.0f)
        direction = direction.NormalizedVector();
    m_walker->SetVelocity(direction * kWalkerSpeed);

    // The sprites face right: mirrored, the walker faces left.
    const bool walking = direction.LengthSquared() > 0.0f;
    const bool facingLeft = direction.X < 0.0f || (direction.X == 0.0f && m_facingLeft);
    if (walking != m_walking || facingLeft != m_facingLeft)
        m_walker->PlaySpriteAnimation(walking ? "walk" : "stand", facingLeft, false);
    m_walking = walking;
    m_facingLeft = facingLeft;
}

void @GAME_NAME@Game::KeepOnScreen()
{
    const float margin = 32.0f * kWalkerScale;
    const float halfWidth = 0.5f * static_cast<float>(GetRenderer()->GetViewportWidth()) - margin;
    const float halfHeight = 0.5f * static_cast<float>(GetRenderer()->GetViewportHeight()) - margin;
    OrvVector3D at = m_walker->GetPosition();
    at.X = std::clamp(at.X, -halfWidth, halfWidth);
    at.Y = std::clamp(at.Y, -halfHeight, halfHeight);
    m_walker->SetPosition(at);
}
