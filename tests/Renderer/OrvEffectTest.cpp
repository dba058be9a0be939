#include <gtest/gtest.h>

#include <string>

#include "OrvCgException.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvEffect.h"
#include "OrvEffectManager.h"
#include "OrvFileManager.h"
#include "OrvOpenGLRenderer.h"
#include "OrvPass.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"

namespace
{
using OrvEffectGameTest = OrvGameTest;

std::string MediaText(const char* name)
{
    return OrvScratchDir::Read(std::string(ORV_MEDIA_DIR) + "/" + name);
}
}  // namespace

TEST_F(OrvEffectGameTest, EffectsAreSharedPerExactPathPair)
{
    OrvScratchDir::Write("Flat.txt", MediaText("ColorShader.txt"));
    OrvScratchDir::Write("FLAT.txt", MediaText("ColorShader.txt"));
    OrvEffectManager* effects = renderer->GetEffectManager();
    OrvEffect* lower = effects->CreateEffect("Flat.txt", "Flat.txt");
    EXPECT_EQ(lower, effects->CreateEffect("Flat.txt", "Flat.txt"));
    EXPECT_NE(lower, effects->CreateEffect("FLAT.txt", "FLAT.txt")) << "letter case makes another effect";
    EXPECT_EQ(nullptr, effects->GetEffect("Flat.txt", "FLAT.txt"));
    EXPECT_TRUE(lower->Declared());
    EXPECT_FALSE(lower->DeferredDeclaration());

    OrvColorMaterial first(renderer), second(renderer);
    EXPECT_EQ(first.GetPass(0)->GetEffect(), second.GetPass(0)->GetEffect());
    EXPECT_NE(first.GetPass(0), second.GetPass(0));
    EXPECT_EQ(3u, effects->GetEffectCount());

    // Declared already: nothing is read again.
    OrvFileManager* files = game.GetFileManager();
    const unsigned int lastID = files->LastFileID;
    EXPECT_EQ(1, lower->Declare());
    EXPECT_EQ(lastID, files->LastFileID);
    EXPECT_EQ(nullptr, files->GetFile("Flat.txt")) << "the source file is released after compiling";
}

TEST_F(OrvEffectGameTest, CompileErrorsCarryTheCompilerLog)
{
    const unsigned int effectsBefore = renderer->GetEffectManager()->GetEffectCount();
    OrvScratchDir::Write("Broken.txt", "#ifdef ORV_VERTEX\nvoid VSMain() { gl_Position = nonsense; }\n#endif\n"
                                       "#ifdef ORV_FRAGMENT\nvoid FSMain() { gl_FragColor = vec4(1.0); }\n#endif\n");
    const Thrown thrown([&] { renderer->GetEffectManager()->CreateEffect("Broken.txt", "Broken.txt"); });
    EXPECT_EQ("Orv Cg Exception", thrown.name);
    EXPECT_EQ("src/Renderer/OrvRenderer", thrown.file);
    EXPECT_NE(std::string::npos, thrown.message.find("nonsense")) << thrown.message;
    EXPECT_EQ(effectsBefore, renderer->GetEffectManager()->GetEffectCount());
    EXPECT_EQ(nullptr, game.GetFileManager()->GetFile("Broken.txt")) << "nothing of the attempt stays registered";

    const Thrown missing([&] { renderer->GetEffectManager()->CreateEffect("Nowhere.txt", "Nowhere.txt"); });
    EXPECT_EQ("Orv File Exception", missing.name);
}

TEST(OrvEffect, DeclarationWaitsForAFileManager)
{
    OrvGameFolder folder;
    OrvTestGame game;
    OrvOpenGLRenderer early(&game);
    early.Init(0, 0, 0, 0);
    OrvEffect waiting(early.GetEffectManager(), "ColorShader.txt", "ColorShader.txt");
    EXPECT_TRUE(waiting.DeferredDeclaration());
    EXPECT_FALSE(waiting.Declared());
    EXPECT_FALSE(waiting.MonitorDefferedDeclaration(false));
    EXPECT_TRUE(waiting.DeferredDeclaration()) << "no file manager yet: it keeps waiting";

    OrvEffect unmanaged(nullptr, "ColorShader.txt", "ColorShader.txt");
    unmanaged.DeferDeclaration(true);
    EXPECT_TRUE(unmanaged.UnDeclare());
    EXPECT_FALSE(unmanaged.DeferredDeclaration());

    game.Initialise(32, 32);
    EXPECT_TRUE(waiting.MonitorDefferedDeclaration(false));
    EXPECT_TRUE(waiting.Declared());
    EXPECT_FALSE(waiting.DeferredDeclaration());
    EXPECT_TRUE(waiting.MonitorDefferedDeclaration(false)) << "nothing waits any more";
    waiting.UnDeclare();
    game.Term();
}

TEST_F(OrvEffectGameTest, RedeclaredEffectsDrawWithNewPrograms)
{
    OrvColorMaterial material(renderer);
    material.SetColor(OrvColor(0.0f, 1.0f, 0.0f, 1.0f));
    OrvEffect* effect = material.GetPass(0)->GetEffect();
    const CGprogram oldVertex = effect->GetVSProgram();
    const CGcontext oldContext = renderer->GetCGContext();
    renderer->GetEffectManager()->RedeclareEffects();
    EXPECT_NE(oldVertex, effect->GetVSProgram());
    EXPECT_NE(oldContext, renderer->GetCGContext());
    EXPECT_TRUE(effect->Declared());

    material.ActivatePass(0);
    Quad(0, 0, 64, 64);
    EXPECT_TRUE(PixelIs(32, 32, 0x00FF00));
}
