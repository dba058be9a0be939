#include <gtest/gtest.h>

#include <GL/gl.h>

#include "OrvColor.h"
#include "OrvEffect.h"
#include "OrvColorMaterial.h"
#include "OrvCamera.h"
#include "OrvColoredTextureMaterial.h"
#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvGLStateCache.h"
#include "OrvOpenGLRenderer.h"
#include "OrvPass.h"
#include "OrvShaderRuntime.h"
#include "OrvTestGame.h"
#include "OrvTextureManager.h"

namespace
{
const unsigned int kRed = 0xFF0000;
const unsigned int kBlue = 0x0000FF;
const unsigned int kBlack = 0x000000;

class OrvBatchingTest : public OrvGameTest
{
protected:
    OrvOpenGLRenderer& GL() { return *static_cast<OrvOpenGLRenderer*>(renderer); }
    unsigned long Draws() { return GL().GetDrawCallCount(); }
};

// A 2 × 2 opaque texture of one colour.
class PlainImage : public OrvQuadColoursImage
{
public:
    explicit PlainImage(unsigned int rgb)
    {
        for (int i = 0; i < 16; i += 4)
        {
            m_data[i] = static_cast<unsigned char>(rgb >> 16);
            m_data[i + 1] = static_cast<unsigned char>(rgb >> 8);
            m_data[i + 2] = static_cast<unsigned char>(rgb);
        }
    }
};

// A game whose HUD hook records what the frame shows at its points.
class ProbeGame : public OrvTestGame
{
public:
    void OnRenderHUD() override
    {
        seenInHook = PixelAt(8, 8);
        if (hookMaterial != nullptr)
        {
            hookMaterial->ActivatePass(0);
            DrawQuad(*GetRenderer(), 40, 40, 56, 56);
            beforeFlush = PixelAt(48, 48);
            GetRenderer()->Flush();
            afterFlush = PixelAt(48, 48);
        }
    }
    OrvColorMaterial* hookMaterial = nullptr;
    unsigned int seenInHook = 0;
    unsigned int beforeFlush = 0;
    unsigned int afterFlush = 0;
};
}  // namespace

TEST_F(OrvBatchingTest, BracketsThatShareTheirStateShareOneDraw)
{
    OrvColorMaterial red(renderer);
    red.SetColor(OrvColor(1.0f, 0.0f, 0.0f, 1.0f));
    OrvColorMaterial blue(renderer);
    blue.SetColor(OrvColor(0.0f, 0.0f, 1.0f, 1.0f));

    renderer->SetBatching(true);
    const unsigned long before = Draws();
    for (int i = 0; i < 8; ++i)
    {
        // Each quad under its own model-view, as game assets draw.
        renderer->PushMatrix(TRANS_MATRIX_MODEL);
        renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(static_cast<float>(i * 8), 0.0f, 0.0f));
        red.ActivatePass(0);
        Quad(0, 0, 8, 8);
        renderer->PopMatrix(TRANS_MATRIX_MODEL);
    }
    EXPECT_EQ(before, Draws()) << "nothing is drawn before a flush point";
    // A new colour is new state: the red quads go out first.
    blue.ActivatePass(0);
    Quad(0, 32, 64, 40);
    EXPECT_EQ(before + 1, Draws());
    renderer->Flush();
    EXPECT_EQ(before + 2, Draws());
    renderer->SetBatching(false);

    EXPECT_TRUE(PixelIs(4, 4, kRed));
    EXPECT_TRUE(PixelIs(60, 4, kRed)) << "the eighth quad, moved by its own model-view";
    EXPECT_TRUE(PixelIs(32, 36, kBlue));
    EXPECT_TRUE(PixelIs(32, 20, kBlack));

    // Without batching every End draws.
    red.ActivatePass(0);
    Quad(0, 48, 8, 56);
    EXPECT_EQ(before + 3, Draws());
    EXPECT_TRUE(PixelIs(4, 52, kRed));
}

TEST_F(OrvBatchingTest, FullArraysUnfinishedQuadsAndLineLoopsDrawWhatImmediateModeDrew)
{
    OrvColorMaterial red(renderer);
    red.SetColor(OrvColor(1.0f, 0.0f, 0.0f, 1.0f));
    red.ActivatePass(0);
    renderer->SetBatching(true);
    const unsigned long before = Draws();
    // More one-pixel quads than the array holds, in one bracket (the lower
    // half, twice over, then one more row): all of them come out.
    OrvVertex corner;
    renderer->Begin(RENDER_MODE_QUADS);
    for (int i = 0; i < 64 * 32 * 2 + 64; ++i)
    {
        const float x = static_cast<float>(i % 64);
        const float y = static_cast<float>((i / 64) % 32);
        const float corners[4][2] = {{x, y}, {x + 1, y}, {x + 1, y + 1}, {x, y + 1}};
        for (const auto& c : corners)
        {
            corner.SetPosition(OrvVector3D(c[0], c[1], 0.0f));
            renderer->Vertex(&corner);
        }
    }
    // Two stray vertices end the bracket: immediate mode dropped them.
    corner.SetPosition(OrvVector3D(0, 60, 0));
    renderer->Vertex(&corner);
    corner.SetPosition(OrvVector3D(63, 60, 0));
    renderer->Vertex(&corner);
    renderer->End();
    // The next quad of the same state is not bent by them.
    Quad(40, 40, 56, 56);
    renderer->Flush();
    renderer->SetBatching(false);
    EXPECT_EQ(before + 2, Draws()) << "one draw for the full array, one for the rest";
    EXPECT_TRUE(PixelIs(0, 0, kRed));
    EXPECT_TRUE(PixelIs(63, 31, kRed));
    EXPECT_TRUE(PixelIs(30, 52, kBlack)) << "no quad from the stray vertices";
    EXPECT_TRUE(PixelIs(48, 48, kRed));

    renderer->PreRender();
    renderer->Begin(RENDER_MODE_LINE_LOOP);
    const float loop[4][2] = {{8, 8}, {56, 8}, {56, 56}, {8, 56}};
    for (const auto& c : loop)
    {
        corner.SetPosition(OrvVector3D(c[0], c[1], 0.0f));
        renderer->Vertex(&corner);
    }
    renderer->End();
    EXPECT_TRUE(PixelIs(8, 32, kRed)) << "the closing edge";
    EXPECT_TRUE(PixelIs(32, 32, kBlack));

    // A Begin refused for its mode sends its vertices nowhere.
    EXPECT_THROW(renderer->Begin(static_cast<OrvRenderMode>(4)), OrvException);
    Quad(24, 24, 40, 40);
    EXPECT_TRUE(PixelIs(32, 32, kRed)) << "the next bracket draws";
    renderer->PreRender();
    EXPECT_THROW(renderer->Begin(static_cast<OrvRenderMode>(4)), OrvException);
    for (const auto& c : loop)
    {
        corner.SetPosition(OrvVector3D(c[0], c[1], 0.0f));
        renderer->Vertex(&corner);
    }
    renderer->End();
    EXPECT_TRUE(PixelIs(32, 32, kBlack));
    EXPECT_TRUE(PixelIs(8, 32, kBlack));
}

TEST_F(OrvBatchingTest, ChangesUnderWaitingGeometryDrawItFirst)
{
    PlainImage redImage(kRed);
    OrvTexture* texture = game.GetTextureManager()->CreateTexture();
    texture->AddUser();
    texture->SetDataFromImage(&redImage);
    OrvColoredTextureMaterial material(renderer, texture, OrvColor(1.0f, 1.0f, 1.0f, 1.0f));
    renderer->SetBatching(true);
    material.ActivatePass(0);
    Quad(0, 0, 32, 32);
    // New contents of a texture the waiting quad shows.
    PlainImage blueImage(kBlue);
    texture->SetDataFromImage(&blueImage);
    material.ActivatePass(0);
    Quad(32, 0, 64, 32);
    // A parameter the waiting quad's effect uses.
    material.SetColor(OrvColor(1.0f, 1.0f, 1.0f, 0.0f));
    material.ActivatePass(0);
    Quad(0, 32, 64, 64);
    renderer->SetBatching(false);
    EXPECT_TRUE(PixelIs(16, 16, kRed));
    EXPECT_TRUE(PixelIs(48, 16, kBlue));
    EXPECT_TRUE(PixelIs(32, 48, kBlack)) << "transparent";

    // A model-view handed to another effect does not move this one's vertices.
    OrvColorMaterial other(renderer);
    material.SetColor(OrvColor(1.0f, 1.0f, 1.0f, 1.0f));
    material.ActivatePass(0);
    OrvMatrix far = OrvMatrix::CreateIdentity(4);
    far.Translate(OrvVector3D(1000, 0, 0));
    renderer->SetEffectParameter(other.GetPass(0)->GetEffect(), "in_m44ModelView", &far);
    Quad(0, 32, 32, 64);
    EXPECT_TRUE(PixelIs(16, 48, kBlue));
    texture->RemoveUser();
}

TEST_F(OrvBatchingTest, WhatOthersChangeIsSetAgainAndPassesKeepTheirOwnTextures)
{
    PlainImage redImage(kRed);
    PlainImage blueImage(kBlue);
    OrvTexture* textures[2] = {game.GetTextureManager()->CreateTexture(), game.GetTextureManager()->CreateTexture()};
    textures[0]->SetDataFromImage(&redImage);
    textures[1]->SetDataFromImage(&blueImage);
    OrvColoredTextureMaterial first(renderer, textures[0], OrvColor(1.0f, 1.0f, 1.0f, 1.0f));
    OrvColoredTextureMaterial second(renderer, textures[1], OrvColor(1.0f, 1.0f, 1.0f, 1.0f));
    renderer->SetBatching(true);
    const unsigned long before = Draws();
    for (int i = 0; i < 4; ++i)
    {
        (i % 2 == 0 ? first : second).ActivatePass(0);
        Quad(static_cast<float>(i * 16), 0, static_cast<float>(i * 16 + 16), 16);
    }
    renderer->Flush();
    EXPECT_EQ(before + 4, Draws()) << "one draw per change of texture";
    EXPECT_TRUE(PixelIs(8, 8, kRed));
    EXPECT_TRUE(PixelIs(24, 8, kBlue));
    EXPECT_TRUE(PixelIs(40, 8, kRed));

    // Someone else changes the blend function and the colour parameter: the
    // same pass activated again sets both anew.
    first.ActivatePass(0);
    OrvGLStateCache::BlendFunc(GL_ZERO, GL_ONE);
    OrvEffect* effect = first.GetPass(0)->GetEffect();
    const float dim[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    cgSetParameter4fv(cgGetNamedParameter(effect->GetFSProgram(), "in_f4Color"), dim);
    first.ActivatePass(0);
    Quad(0, 32, 16, 48);
    renderer->SetBatching(false);
    EXPECT_TRUE(PixelIs(8, 40, kRed));
}

TEST(OrvBatching, TheFrameIsDrawnBeforeHooksAndWhenAPassEnds)
{
    OrvGameFolder folder;
    ProbeGame game;
    game.Initialise(64, 64);
    OrvRenderer* renderer = game.GetRenderer();
    OrvGameAssetDesc desc;
    desc.position.Set(0.0f, 0.0f, 0.0f);
    OrvGameAsset* square = game.GetGameAssetManager()->CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&desc);
    square->SetMesh(SquareMesh(renderer, 64.0f, OrvColor(1.0f, 0.0f, 0.0f, 1.0f)));
    square->AttachTo(game.GetWorldRoot());
    game.GetWorldCamera()->SetPosition(OrvVector3D(0, 0, 10));
    OrvColorMaterial blue(renderer);
    blue.SetColor(OrvColor(0.0f, 0.0f, 1.0f, 1.0f));
    game.hookMaterial = &blue;

    renderer->PreRender();
    game.RenderWorld();
    game.RenderHUD();
    EXPECT_EQ(kRed, game.seenInHook) << "the world pass was drawn before the HUD hook";
    EXPECT_EQ(kRed, game.beforeFlush) << "the hook's own quad waits...";
    EXPECT_EQ(kBlue, game.afterFlush) << "...until the game flushes";
    EXPECT_FALSE(renderer->GetBatching()) << "batching lasts as long as a pass";
    game.Term();
}
