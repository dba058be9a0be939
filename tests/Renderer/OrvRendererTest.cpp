#include <gtest/gtest.h>

#include <GL/gl.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvEffect.h"
#include "OrvEffectManager.h"
#include "OrvGLStateCache.h"
#include "OrvMaterialShelf.h"
#include "OrvOpenGLRenderer.h"
#include "OrvPass.h"
#include "OrvPassDesc.h"
#include "OrvShaderRuntime.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"
#include "OrvVector3D.h"

namespace
{
const char* const kRendererFile = "src/Renderer/OrvRenderer";
const char* const kOpenGLFile = "src/Renderer/OrvOpenGLRenderer";

std::string Refused(const std::function<void()>& call)
{
    const Thrown thrown(call);
    return thrown.name == "Orv Renderer Exception" ? thrown.message + " @" + thrown.file : thrown.Full();
}

std::string Message(const char* text, const char* file = kRendererFile)
{
    return std::string(text) + " @" + file;
}

using OrvRendererGameTest = OrvGameTest;
}  // namespace

TEST(OrvRenderer, EveryDrawingOperationIsRefusedBeforeInitialisation)
{
    OrvOpenGLRenderer renderer(nullptr);
    OrvVertex vertex;
    OrvPass pass;
    const std::vector<std::pair<std::function<void()>, const char*>> refusals = {
        {[&] { renderer.PreRender(); }, "You tried to pre render before initialising the renderer"},
        {[&] { renderer.PostRender(); }, "You tried to post render before initialising the renderer"},
        {[&] { renderer.Begin(RENDER_MODE_QUADS); }, "You tried to begin rendering before initialising the renderer"},
        {[&] { renderer.End(); }, "You tried to end rendering before initialising the renderer"},
        {[&] { renderer.Vertex(&vertex); }, "You tried to render a vertex before initialising the renderer"},
        {[&] { renderer.ActivatePass(&pass); }, "You tried to activate a pass before initialising the renderer"},
        {[&] { renderer.DeclareEffect(nullptr); }, "You tried to declare an effect before initialising the renderer"},
        {[&] { renderer.UndeclareEffect(nullptr); },
         "You tried to undeclare an effect before initialising the renderer"},
        {[&] { renderer.SetEffectParameter(nullptr, "x", nullptr); },
         "You tried to set an effect parameter before initialising the renderer"},
        {[&] { renderer.SetTextureUnit(TEXTURE_UNIT_0, nullptr); },
         "You tried to set a texture unit before initialising the renderer"},
    };
    for (const auto& refusal : refusals)
        EXPECT_EQ(Message(refusal.second), Refused(refusal.first));
    EXPECT_FALSE(renderer.GetRendering()) << "a refused Begin changes nothing";
    EXPECT_EQ(Message("You tried to set an invalid texture unit", kOpenGLFile),
              Refused([&] { renderer.SetTextureUnit(static_cast<OrvTextureUnit>(2), nullptr, MIPMAP_LINEAR, WRAP_REPEAT); }))
        << "the unit is checked before the protocol";
    EXPECT_EQ(0, renderer.GetRendererType());
    EXPECT_EQ(nullptr, renderer.GetEffectManager());
}

TEST(OrvRenderer, MatrixStacksHoldFifteenAndRefuseUnhandledKinds)
{
    OrvOpenGLRenderer renderer(nullptr);
    EXPECT_EQ(OrvMatrix(), renderer.PeekMatrix(TRANS_MATRIX_VIEW)) << "one zero matrix from construction";
    for (int i = 0; i < 14; ++i)
        renderer.PushIdentityMatrix(TRANS_MATRIX_MODEL);
    EXPECT_EQ("Orv Stack Exception | You tried to push a full stack | template/OrvTStack",
              Thrown([&] { renderer.PushMatrix(TRANS_MATRIX_MODEL); }).Full());

    renderer.PopMatrix(TRANS_MATRIX_PROJECTION);
    EXPECT_EQ("You tried to peek a empty stack", Thrown([&] { renderer.PushMatrix(TRANS_MATRIX_PROJECTION); }).message);
    EXPECT_EQ("You tried to pop an empty stack", Thrown([&] { renderer.PopMatrix(TRANS_MATRIX_PROJECTION); }).message);
    renderer.PushIdentityMatrix(TRANS_MATRIX_PROJECTION);
    EXPECT_EQ(OrvMatrix::CreateIdentity(4), renderer.PeekMatrix(TRANS_MATRIX_PROJECTION));

    const OrvTransMatrix unhandled = static_cast<OrvTransMatrix>(3);
    EXPECT_EQ(Message("You tried to peek an unhandled matrix"), Refused([&] { renderer.PeekMatrix(unhandled); }));
    EXPECT_EQ(Message("You tried to push an unhandled matrix"),
              Refused([&] { renderer.PushIdentityMatrix(unhandled); }));
    EXPECT_EQ(Message("You tried to pop an unhandled matrix"), Refused([&] { renderer.PopMatrix(unhandled); }));
    EXPECT_EQ(Message("You tried to peek an unhandled matrix"),
              Refused([&] { renderer.TranslateMatrix(unhandled, OrvVector3D(1, 2, 3)); }));

    // The view moves the world by -870 in z; the model is the identity.
    renderer.LoadIdentityMatrix(TRANS_MATRIX_VIEW);
    renderer.TranslateMatrix(TRANS_MATRIX_VIEW, OrvVector3D(0, 0, -870));
    renderer.PushMatrix(TRANS_MATRIX_VIEW);
    renderer.ScaleMatrix(TRANS_MATRIX_VIEW, OrvVector3D(2, 2, 2));
    renderer.PopMatrix(TRANS_MATRIX_VIEW);
    OrvMatrix expected = OrvMatrix::CreateIdentity(4);
    expected.Set(3, 4, -870.0f);
    EXPECT_EQ(expected, renderer.GetModelViewTranslation()) << "push and pop leave the view as it was";
}

TEST_F(OrvRendererGameTest, SetupInitialisesOnceAndPreRenderResetsTheModel)
{
    EXPECT_TRUE(renderer->GetInitialized());
    EXPECT_EQ(kSize, renderer->GetViewportWidth());
    EXPECT_NE(nullptr, renderer->GetEffectManager());
    EXPECT_NE(nullptr, renderer->GetCGContext());
    EXPECT_TRUE(renderer->Setup(1, 2, 30, 40));
    EXPECT_EQ(1u, renderer->GetViewportOriginX());
    EXPECT_EQ(40u, renderer->GetViewportHeight());
    EXPECT_EQ(Message("Renderer already initialized"), Refused([&] { renderer->Init(0, 0, 1, 1); }));
    renderer->Setup(0, 0, kSize, kSize);

    GLfloat clear[4] = {1, 1, 1, 1};
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
    EXPECT_EQ(0.0f, clear[0] + clear[1] + clear[2]);
    EXPECT_EQ(1.0f, clear[3]) << "opaque black";
    EXPECT_TRUE(glIsEnabled(GL_BLEND) && glIsEnabled(GL_DEPTH_TEST));

    renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(5, 5, 5));
    renderer->PreRender();
    EXPECT_EQ(OrvMatrix::CreateIdentity(4), renderer->PeekMatrix(TRANS_MATRIX_MODEL));
}

TEST_F(OrvRendererGameTest, InsideBeginAndEndOnlyVerticesAreAccepted)
{
    OrvVertex vertex;
    OrvColorMaterial material(renderer);
    OrvPass* pass = material.GetPass(0);
    EXPECT_EQ(Message("You tried to render a vertex outside of begin and end"),
              Refused([&] { renderer->Vertex(&vertex); }));
    renderer->Begin(RENDER_MODE_LINES);
    const std::vector<std::pair<std::function<void()>, const char*>> refusals = {
        {[&] { renderer->ActivatePass(pass); }, "You tried to activate a pass while rendering"},
        {[&] { renderer->DeclareEffect(pass->GetEffect()); }, "You tried to declare an effect while rendering"},
        {[&] { renderer->UndeclareEffect(pass->GetEffect()); }, "You tried to undeclare an effect while rendering"},
        {[&] { renderer->SetEffectParameter(pass->GetEffect(), "in_f4Color", nullptr); },
         "You tried to set an effect parameter while rendering"},
        {[&] { renderer->SetTextureUnit(TEXTURE_UNIT_1, nullptr); }, "You tried to set a texture unit while rendering"},
        {[&] { material.ActivatePass(0); }, "You tried to set an effect parameter while rendering"},
    };
    for (const auto& refusal : refusals)
        EXPECT_EQ(Message(refusal.second), Refused(refusal.first));
    renderer->Vertex(&vertex);
    renderer->Vertex(&vertex);
    renderer->End();
    EXPECT_TRUE(pass->GetEffect()->Declared()) << "the refused undeclaration changed nothing";

    EXPECT_EQ(Message("You tried to use an unsupported render mode", kOpenGLFile),
              Refused([&] { renderer->Begin(static_cast<OrvRenderMode>(4)); }));
    EXPECT_TRUE(renderer->GetRendering()) << "the flag is set before the mode is checked";
    renderer->End();
    EXPECT_FALSE(renderer->GetRendering());
}

TEST_F(OrvRendererGameTest, PassStateReachesOpenGL)
{
    OrvColorMaterial material(renderer);
    OrvPass* pass = material.GetPass(0);
    pass->SetBlendFunction(BLEND_FACTOR_ONE, static_cast<OrvBlendFactor>(10));
    EXPECT_EQ(Message("You tried to set an invalid destination blend factor", kOpenGLFile),
              Refused([&] { renderer->ActivatePass(pass); }));
    pass->SetBlendFunction(static_cast<OrvBlendFactor>(10), BLEND_FACTOR_ONE);
    EXPECT_EQ(Message("You tried to set an invalid source blend factor", kOpenGLFile),
              Refused([&] { renderer->ActivatePass(pass); }));

    pass->SetBlendFunction(BLEND_FACTOR_DST_ALPHA, BLEND_FACTOR_ONE_MINUS_SRC_COLOR);
    pass->SetMipMapMethod(MIPMAP_NEAREST);
    pass->SetWrapMethod(WRAP_CLAMP);
    renderer->ActivatePass(pass);
    GLint source = 0, destination = 0;
    glGetIntegerv(GL_BLEND_SRC, &source);
    glGetIntegerv(GL_BLEND_DST, &destination);
    EXPECT_EQ(GL_DST_ALPHA, source);
    EXPECT_EQ(GL_ONE_MINUS_SRC_COLOR, destination);

    // An empty unit binds texture 0 and still takes the filter and wrap.
    static_cast<OrvOpenGLRenderer*>(renderer)->SetTextureUnit(TEXTURE_UNIT_1, nullptr, MIPMAP_LINEAR, WRAP_REPEAT);
    GLint active = 0, bound = -1, filter = 0, wrap = 0;
    glGetIntegerv(GL_ACTIVE_TEXTURE, &active);
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &filter);
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &wrap);
    EXPECT_EQ(GL_TEXTURE1, active);
    EXPECT_EQ(0, bound);
    EXPECT_EQ(GL_LINEAR, filter);
    EXPECT_EQ(GL_REPEAT, wrap);
}

TEST_F(OrvRendererGameTest, ColourQuadsAppearWhereTheMatricesPutThem)
{
    OrvColorMaterial material(renderer);
    material.SetColor(OrvColor(0.2f, 0.6f, 1.0f, 1.0f));
    material.ActivatePass(0);
    Quad(16, 16, 48, 48);
    EXPECT_TRUE(PixelIs(32, 32, 0x3399FF));
    EXPECT_TRUE(PixelIs(8, 8, 0x000000)) << "the clear colour outside";

    // The model matrix moves the next quad 20 pixels right.
    renderer->PreRender();
    renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(20, 0, 0));
    material.ActivatePass(0);
    Quad(16, 16, 48, 48);
    EXPECT_TRUE(PixelIs(20, 32, 0x000000));
    EXPECT_TRUE(PixelIs(60, 32, 0x3399FF));

    // A new colour material is transparent until given a colour.
    renderer->PreRender();
    OrvColorMaterial invisible(renderer);
    invisible.ActivatePass(0);
    Quad(0, 0, 64, 64);
    EXPECT_TRUE(PixelIs(32, 32, 0x000000));

    renderer->RenderLine(OrvVector3D(0, 32, 0), OrvVector3D(64, 32, 0), OrvColor(255, 255, 0, 255));
    EXPECT_TRUE(PixelIs(32, 32, 0xFFFF00));
}

TEST_F(OrvRendererGameTest, EffectParametersByType)
{
    OrvScratchDir::Write("Typed.txt",
                         "uniform float in_fScale;\nuniform vec3 in_f3Tint;\nuniform int in_iMode;\n"
                         "#ifdef ORV_VERTEX\nvoid VSMain() { gl_Position = gl_Vertex * in_fScale; }\n#endif\n"
                         "#ifdef ORV_FRAGMENT\nvoid FSMain() { gl_FragColor = vec4(in_f3Tint, float(in_iMode)); }\n"
                         "#endif\n");
    OrvEffect* effect = renderer->GetEffectManager()->CreateEffect("Typed.txt", "Typed.txt");
    float scale = 2.0f;
    int mode = 1;
    renderer->SetEffectParameter(effect, "in_fScale", &scale);
    renderer->SetEffectParameter(effect, "in_iMode", &mode);
    float tint[3] = {1, 1, 1};
    EXPECT_EQ(Message("You tried to set a pass parameter of an unsupported type ! "),
              Refused([&] { renderer->SetEffectParameter(effect, "in_f3Tint", tint); }));
    EXPECT_EQ(Message("You tried to set an effect parameter that doesn't exist"),
              Refused([&] { renderer->SetEffectParameter(effect, "in_fMissing", &scale); }));
}

TEST_F(OrvRendererGameTest, StateCachingSkipsRepeatedCallsWithoutChangingThePicture)
{
    OrvColorMaterial material(renderer);
    material.SetColor(OrvColor(1.0f, 0.0f, 0.0f, 1.0f));
    for (bool caching : {true, false})
    {
        OrvGLStateCache::SetCaching(caching);
        OrvShaderRuntimeSetCaching(caching);
        renderer->PreRender();
        material.ActivatePass(0);
        Quad(0, 0, 32, 64);
        OrvGLStateCache::ResetStats();
        OrvShaderRuntimeResetStats();
        material.ActivatePass(0);
        Quad(32, 0, 64, 64);
        const OrvGLStateCache::Stats& stats = OrvGLStateCache::GetStats();
        const unsigned long calls = stats.blendFuncCalls + stats.activeTextureCalls + stats.bindTextureCalls +
                                    stats.texParameterCalls + OrvShaderRuntimeGetStats().useProgramCalls;
        EXPECT_EQ(caching ? 0ul : 14ul, calls) << "caching " << caching;
        EXPECT_TRUE(PixelIs(16, 32, 0xFF0000));
        EXPECT_TRUE(PixelIs(48, 32, 0xFF0000));
    }
}
