#include <gtest/gtest.h>

#include <GL/gl.h>
#include <SDL.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

#include "OrvCgException.h"
#include "OrvGLEntryPoints.h"
#include "OrvShaderRuntime.h"
#include "OrvTestGame.h"

#if defined(__SANITIZE_ADDRESS__)
#define ORV_TEST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORV_TEST_ASAN 1
#endif
#endif

namespace
{
CGerror g_lastError = CG_NO_ERROR;

// What the renderer registers: the pending error's text becomes the exception.
void ThrowingCallback()
{
    g_lastError = cgGetError();
    throw OrvCgException(std::string(cgGetErrorString(g_lastError)), "src/Renderer/OrvRenderer",
                         __LINE__);
}

std::string ReadMedia(const char* name)
{
    std::ifstream file(std::string(ORV_MEDIA_DIR) + "/" + name);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

struct Effect
{
    CGprogram vs;
    CGprogram fs;
};

// Column-major: scale x and y by s, then translate by (tx, ty).
struct Matrix
{
    float m[16];
    Matrix(float s, float tx, float ty) : m{s, 0, 0, 0, 0, s, 0, 0, 0, 0, 1, 0, tx, ty, 0, 1} {}
};

// Lookup as the renderer does it: the vertex program first, then the fragment program.
CGparameter Lookup(const Effect& effect, const char* name)
{
    CGparameter parameter = cgGetNamedParameter(effect.vs, name);
    return parameter != nullptr ? parameter : cgGetNamedParameter(effect.fs, name);
}

void SetColor(const Effect& effect, float r, float g, float b, float a = 1.0f)
{
    const float color[4] = {r, g, b, a};
    cgSetParameter4fv(Lookup(effect, "in_f4Color"), color);
}

void Bind(const Effect& effect)
{
    cgGLEnableProfile(CG_PROFILE_ARBVP1);
    cgGLBindProgram(effect.vs);
    cgGLEnableProfile(CG_PROFILE_ARBFP1);
    cgGLBindProgram(effect.fs);
}

// A pass activation: colour first, then binding, then the two matrices.
void Activate(const Effect& effect, const float color[3], const Matrix& modelView, const Matrix& proj = Matrix(1, 0, 0))
{
    SetColor(effect, color[0], color[1], color[2]);
    Bind(effect);
    cgSetMatrixParameterfc(Lookup(effect, "in_m44ModelView"), modelView.m);
    cgSetMatrixParameterfc(Lookup(effect, "in_m44Proj"), proj.m);
}

void ClearAndDrawQuad()
{
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex3f(-1, -1, 0);
    glTexCoord2f(1, 0);
    glVertex3f(1, -1, 0);
    glTexCoord2f(1, 1);
    glVertex3f(1, 1, 0);
    glTexCoord2f(0, 1);
    glVertex3f(-1, 1, 0);
    glEnd();
}

::testing::AssertionResult PixelIs(int x, int y, int r, int g, int b)
{
    unsigned char pixel[4] = {0, 0, 0, 0};
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    if (std::abs(pixel[0] - r) <= 1 && std::abs(pixel[1] - g) <= 1 && std::abs(pixel[2] - b) <= 1)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "pixel " << x << "," << y << " is " << int(pixel[0]) << ","
                                         << int(pixel[1]) << "," << int(pixel[2]) << ", expected " << r << "," << g
                                         << "," << b;
}

const float kRed[3] = {1, 0, 0};
const float kSky[3] = {0.2f, 0.6f, 1.0f};
const Matrix kHalf(0.5f, 0, 0);

class OrvShaderRuntimeTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
#ifdef ORV_TEST_ASAN
        // The sanitizer runs unwind on every allocation; llvmpipe's JIT code
        // deadlocks that unwinder. Mesa's other software rasteriser has no JIT.
        setenv("GALLIUM_DRIVER", "softpipe", 0);
        setenv("DRAW_USE_LLVM", "0", 0);
#endif
        ASSERT_EQ(0, SDL_Init(SDL_INIT_VIDEO)) << SDL_GetError();
        ASSERT_NE(nullptr, SDL_SetVideoMode(64, 64, 0, SDL_OPENGL)) << SDL_GetError();
        ASSERT_TRUE(OrvGL::LoadEntryPoints());
        PinGLDriver();
        cgSetErrorCallback(ThrowingCallback);
        OrvShaderRuntimeSetCaching(true);
        g_lastError = CG_NO_ERROR;
        context = cgCreateContext();
        glViewport(0, 0, 64, 64);
    }
    void TearDown() override
    {
        if (context != nullptr)
            cgDestroyContext(context);
        cgSetErrorCallback(nullptr);
        OrvShaderRuntimeSetCaching(true);
        SDL_Quit();
    }

    Effect Create(const std::string& text)
    {
        Effect effect;
        effect.vs = cgCreateProgram(context, CG_SOURCE, text.c_str(), CG_PROFILE_ARBVP1, "VSMain", nullptr);
        effect.fs = cgCreateProgram(context, CG_SOURCE, text.c_str(), CG_PROFILE_ARBFP1, "FSMain", nullptr);
        cgGLLoadProgram(effect.vs);
        cgGLLoadProgram(effect.fs);
        return effect;
    }

    CGcontext context = nullptr;
};

// Calls `call`, expecting the callback to throw with `error`; returns the message.
template <typename Call>
std::string ExpectRaises(CGerror error, Call call)
{
    g_lastError = CG_NO_ERROR;
    try
    {
        call();
        ADD_FAILURE() << "no error raised";
        return "";
    }
    catch (const OrvCgException& exception)
    {
        EXPECT_EQ(error, g_lastError);
        EXPECT_STREQ("src/Renderer/OrvRenderer", exception.file);
        return exception.message;
    }
}
}  // namespace

TEST_F(OrvShaderRuntimeTest, CompileAndLinkErrorsRaiseThroughCallbackWithLog)
{
    const std::string broken = "uniform vec4 in_f4Color;\n#ifdef ORV_VERTEX\nvoid VSMain() { gl_Position = "
                               "ftransform() }\n#endif\n";
    const std::string message = ExpectRaises(CG_COMPILER_ERROR, [&] {
        cgCreateProgram(context, CG_SOURCE, broken.c_str(), CG_PROFILE_ARBVP1, "VSMain", nullptr);
    });
    EXPECT_NE(std::string::npos, message.find("error")) << message;
    EXPECT_NE(std::string::npos, message.find("0:3(")) << "line numbers are the file's own: " << message;
    EXPECT_EQ(message, cgGetErrorString(CG_COMPILER_ERROR));
    EXPECT_EQ(CG_NO_ERROR, cgGetError());

    // Without a callback the failure is only recorded.
    cgSetErrorCallback(nullptr);
    EXPECT_EQ(nullptr, cgCreateProgram(context, CG_SOURCE, broken.c_str(), CG_PROFILE_ARBVP1, "VSMain", nullptr));
    EXPECT_EQ(CG_COMPILER_ERROR, cgGetError());
    EXPECT_EQ(CG_NO_ERROR, cgGetError());
    cgSetErrorCallback(ThrowingCallback);

    // The runtime writes #version: 120 in the file is tolerated, another version refused.
    const std::string color = ReadMedia("ColorShader.txt");
    EXPECT_NE(nullptr, cgCreateProgram(context, CG_SOURCE, ("#version 120\n" + color).c_str(), CG_PROFILE_ARBFP1,
                                       "FSMain", nullptr));
    EXPECT_NE(std::string::npos, ExpectRaises(CG_COMPILER_ERROR, [&] {
                                     cgCreateProgram(context, CG_SOURCE, ("#version 330\n" + color).c_str(),
                                                     CG_PROFILE_ARBFP1, "FSMain", nullptr);
                                 }).find("#version 330"));

    // A missing entry, a wrong profile, a wrong source kind.
    ExpectRaises(CG_COMPILER_ERROR, [&] {
        cgCreateProgram(context, CG_SOURCE, color.c_str(), CG_PROFILE_ARBFP1, "PSMain", nullptr);
    });
    ExpectRaises(CG_UNKNOWN_PROFILE_ERROR,
                 [&] { cgCreateProgram(context, CG_SOURCE, color.c_str(), 6151, "VSMain", nullptr); });
    ExpectRaises(CG_INVALID_ENUMERANT_ERROR,
                 [&] { cgCreateProgram(context, 4113, color.c_str(), CG_PROFILE_ARBVP1, "VSMain", nullptr); });

    // Stages that compile alone but disagree on a varying fail when the pair is bound.
    const Effect mismatched = Create(
        "#ifdef ORV_VERTEX\nvarying vec2 v;\nvoid VSMain() { v = vec2(1.0); gl_Position = gl_Vertex; }\n#endif\n"
        "#ifdef ORV_FRAGMENT\nvarying vec3 v;\nvoid FSMain() { gl_FragColor = vec4(v, 1.0); }\n#endif\n");
    EXPECT_NE(std::string::npos, ExpectRaises(CG_LINK_ERROR, [&] { Bind(mismatched); }).find("error"));
}

TEST_F(OrvShaderRuntimeTest, ParametersByNameTypeAndValue)
{
    const Effect color = Create(ReadMedia("ColorShader.txt"));
    EXPECT_EQ(CG_FLOAT4x4, cgGetParameterType(cgGetNamedParameter(color.vs, "in_m44ModelView")));
    EXPECT_EQ(CG_FLOAT4x4, cgGetParameterType(cgGetNamedParameter(color.vs, "in_m44Proj")));
    EXPECT_EQ(nullptr, cgGetNamedParameter(color.vs, "in_f4Color")) << "only the fragment stage uses it";
    EXPECT_EQ(CG_FLOAT4, cgGetParameterType(cgGetNamedParameter(color.fs, "in_f4Color")));
    EXPECT_EQ(nullptr, cgGetNamedParameter(color.fs, "in_m44Proj"));
    EXPECT_EQ(nullptr, Lookup(color, "in_nothing"));
    EXPECT_EQ(CG_UNKNOWN_TYPE, cgGetParameterType(nullptr));

    const Effect typed = Create("uniform float in_fRed;\nuniform int in_iGreen;\nuniform vec3 in_f3Offset;\n"
                                "uniform bool in_bBlue;\n"
                                "#ifdef ORV_VERTEX\nvoid VSMain() { gl_Position = gl_Vertex; }\n#endif\n"
                                "#ifdef ORV_FRAGMENT\nvoid FSMain() {\n"
                                "  gl_FragColor = vec4(in_fRed, float(in_iGreen) / 4.0, in_bBlue ? 1.0 : 0.0, 1.0)"
                                " + vec4(in_f3Offset, 0.0);\n}\n#endif\n");
    const CGparameter red = cgGetNamedParameter(typed.fs, "in_fRed");
    const CGparameter green = cgGetNamedParameter(typed.fs, "in_iGreen");
    const CGparameter blue = cgGetNamedParameter(typed.fs, "in_bBlue");
    const CGparameter vec3 = cgGetNamedParameter(typed.fs, "in_f3Offset");
    EXPECT_EQ(CG_FLOAT, cgGetParameterType(red));
    EXPECT_EQ(CG_INT, cgGetParameterType(green));
    EXPECT_EQ(CG_BOOL, cgGetParameterType(blue));
    EXPECT_EQ(CG_FLOAT3, cgGetParameterType(vec3));

    // Values set before the pair is bound and after both reach the draw.
    cgSetParameter1f(red, 0.5f);
    Bind(typed);
    cgSetParameter1i(green, 2);
    cgSetParameter1i(blue, 1);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 128, 128, 255));

    // Setters that do not fit the type are refused.
    const float four[4] = {0, 0, 0, 0};
    ExpectRaises(CG_INVALID_VALUE_TYPE_ERROR, [&] { cgSetParameter4fv(vec3, four); });
    ExpectRaises(CG_INVALID_VALUE_TYPE_ERROR, [&] { cgSetParameter1f(green, 1.0f); });
    ExpectRaises(CG_INVALID_VALUE_TYPE_ERROR, [&] { cgSetParameter1i(red, 1); });

    // Handles of a destroyed program are refused, not followed.
    cgGLUnloadProgram(typed.fs);
    cgDestroyProgram(typed.fs);
    ExpectRaises(CG_INVALID_PARAM_HANDLE_ERROR, [&] { cgGetParameterType(red); });
    ExpectRaises(CG_INVALID_PARAM_HANDLE_ERROR, [&] { cgSetParameter1f(red, 1.0f); });
    ExpectRaises(CG_INVALID_PROGRAM_HANDLE_ERROR, [&] { cgGetNamedParameter(typed.fs, "in_fRed"); });
}

TEST_F(OrvShaderRuntimeTest, RedundantBindsAndUploadsAreSkipped)
{
    const Effect a = Create(ReadMedia("ColorShader.txt"));
    const Effect b = Create(ReadMedia("ColorShader.txt"));
    Activate(a, kRed, kHalf);

    OrvShaderRuntimeResetStats();
    Activate(a, kRed, kHalf);
    EXPECT_EQ(0u, OrvShaderRuntimeGetStats().useProgramCalls);
    EXPECT_EQ(0u, OrvShaderRuntimeGetStats().uniformCalls);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 255, 0, 0));

    // Switching pairs binds once; coming back re-uploads nothing that did not change.
    Activate(b, kSky, kHalf);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 51, 153, 255));
    OrvShaderRuntimeResetStats();
    Activate(a, kRed, kHalf);
    EXPECT_EQ(1u, OrvShaderRuntimeGetStats().useProgramCalls);
    EXPECT_EQ(0u, OrvShaderRuntimeGetStats().uniformCalls);
    EXPECT_EQ(0u, OrvShaderRuntimeGetStats().links);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 255, 0, 0));

    // A value set on a pair not in use waits for its bind.
    OrvShaderRuntimeResetStats();
    SetColor(b, 0, 1, 0);
    EXPECT_EQ(0u, OrvShaderRuntimeGetStats().uniformCalls);
    Bind(b);
    EXPECT_EQ(1u, OrvShaderRuntimeGetStats().uniformCalls);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 0, 255, 0));

    // Without the caching every activation binds and uploads, and still draws right.
    OrvShaderRuntimeSetCaching(false);
    Activate(a, kRed, kHalf);
    OrvShaderRuntimeResetStats();
    Activate(a, kRed, kHalf);
    EXPECT_EQ(1u, OrvShaderRuntimeGetStats().useProgramCalls);
    EXPECT_GE(OrvShaderRuntimeGetStats().uniformCalls, 3u);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 255, 0, 0));
}

TEST_F(OrvShaderRuntimeTest, UniformOfBothStagesTakesLatestValue)
{
    const Effect both = Create("uniform vec4 in_f4Color;\n"
                               "#ifdef ORV_VERTEX\nvoid VSMain() { gl_Position = gl_Vertex * vec4(0.5, 0.5, 1.0, "
                               "1.0); gl_FrontColor = in_f4Color; }\n#endif\n"
                               "#ifdef ORV_FRAGMENT\nvoid FSMain() { gl_FragColor = gl_Color * in_f4Color; }\n"
                               "#endif\n");
    const CGparameter inVertex = cgGetNamedParameter(both.vs, "in_f4Color");
    const CGparameter inFragment = cgGetNamedParameter(both.fs, "in_f4Color");
    ASSERT_NE(nullptr, inVertex);
    ASSERT_NE(nullptr, inFragment);
    const float white[4] = {1, 1, 1, 1};
    const float pink[4] = {1, 0.5f, 0.5f, 1};
    cgSetParameter4fv(inFragment, white);
    cgSetParameter4fv(inVertex, pink);
    Bind(both);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 255, 64, 64)) << "one uniform, seen squared by the two stages";
    cgSetParameter4fv(inFragment, white);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 255, 255, 255));
}

TEST_F(OrvShaderRuntimeTest, UnloadDestroyAndNewContext)
{
    const std::string text = ReadMedia("ColorShader.txt");
    Effect effect = Create(text);
    Activate(effect, kRed, kHalf);

    cgGLUnloadProgram(effect.fs);
    ExpectRaises(CG_PROGRAM_NOT_LOADED_ERROR, [&] { Bind(effect); });
    cgGLLoadProgram(effect.fs);
    OrvShaderRuntimeResetStats();
    Activate(effect, kRed, kHalf);
    EXPECT_EQ(1u, OrvShaderRuntimeGetStats().links) << "the pair was dropped at unload";
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 255, 0, 0));

    // A new fragment program with the old vertex program.
    cgGLUnloadProgram(effect.fs);
    cgDestroyProgram(effect.fs);
    effect.fs = cgCreateProgram(context, CG_SOURCE, text.c_str(), CG_PROFILE_ARBFP1, "FSMain", nullptr);
    cgGLLoadProgram(effect.fs);
    Activate(effect, kSky, kHalf);
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(32, 32, 51, 153, 255));

    // Destroying the context takes its programs with it.
    cgDestroyContext(context);
    const CGcontext old = context;
    context = nullptr;
    ExpectRaises(CG_INVALID_PROGRAM_HANDLE_ERROR, [&] { cgGLBindProgram(effect.vs); });
    ExpectRaises(CG_INVALID_CONTEXT_HANDLE_ERROR, [&] { cgDestroyContext(old); });
    ExpectRaises(CG_INVALID_CONTEXT_HANDLE_ERROR, [&] {
        cgCreateProgram(old, CG_SOURCE, text.c_str(), CG_PROFILE_ARBVP1, "VSMain", nullptr);
    });

    context = cgCreateContext();
    const Effect again = Create(text);
    const float green[3] = {0, 1, 0};
    Activate(again, green, Matrix(0.5f, 0.5f, 0));
    ClearAndDrawQuad();
    EXPECT_TRUE(PixelIs(48, 32, 0, 255, 0));
    EXPECT_TRUE(PixelIs(16, 32, 0, 0, 0));
}

TEST(OrvShaderRuntimeNoWindow, WithoutGLContextEntryPointsAreNotLoaded)
{
    ASSERT_EQ(0u, SDL_WasInit(SDL_INIT_EVERYTHING));
    EXPECT_FALSE(OrvGL::LoadEntryPoints());
    EXPECT_FALSE(OrvGL::EntryPointsLoaded());
    EXPECT_EQ(nullptr, OrvGL::glUseProgram);

    cgSetErrorCallback(nullptr);
    const CGcontext context = cgCreateContext();
    EXPECT_EQ(nullptr, cgCreateProgram(context, CG_SOURCE, "void main() {}", CG_PROFILE_ARBVP1, "main", nullptr));
    EXPECT_EQ(CG_GL_UNAVAILABLE_ERROR, cgGetError());
    cgDestroyContext(context);
    EXPECT_EQ(CG_NO_ERROR, cgGetError());
}
