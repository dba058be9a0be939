#include <gtest/gtest.h>

#include <GL/gl.h>

#include "OrvOpenGLRenderer.h"
#include "OrvOpenGLTexture.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"
#include "OrvTextureManager.h"

namespace
{
using OrvTextureGameTest = OrvGameTest;

// A renderer of a type the texture manager does not know.
class OtherRenderer : public OrvOpenGLRenderer
{
public:
    OtherRenderer() : OrvOpenGLRenderer(nullptr) { m_rendererType = 1; }
};

// Pixels of two bytes: a format no texture takes.
class TwoBytePixels : public OrvQuadColoursImage
{
public:
    TwoBytePixels() { m_pixelFormat = static_cast<PIXEL_FORMAT>(2); }
};

int g_callbacks = 0;
}  // namespace

TEST(OrvTextureManager, IdentifiersAreNeverReusedAndCleanUpKeepsUsedTextures)
{
    OrvOpenGLRenderer renderer(nullptr);
    OrvTextureManager manager(&renderer);
    OrvTexture* first = manager.CreateTexture();
    OrvTexture* second = manager.CreateTexture();
    OrvTexture* third = manager.CreateTexture();
    EXPECT_EQ(1, first->GetID());
    EXPECT_EQ(3, third->GetID());
    EXPECT_EQ(&manager, second->GetTextureManager());
    third->AddUser();
    manager.CleanUp();
    ASSERT_EQ(1u, manager.GetTextureCount());
    EXPECT_EQ(third, manager.GetTexture(0));
    EXPECT_EQ(4, manager.CreateTexture()->GetID());

    third->AddUser();
    third->RemoveUser();
    third->RemoveUser();
    EXPECT_EQ("Orv Exception | You removed to many users from texture ! | src/Renderer/OrvTexture",
              Thrown([&] { third->RemoveUser(); }).Full());
    EXPECT_FALSE(third->IsInUse());

    EXPECT_FALSE(third->SetWrapMethod(static_cast<WRAP_METHOD>(2)));
    EXPECT_TRUE(third->SetWrapMethod(WRAP_CLAMP));
    EXPECT_FALSE(third->SetMipMapMethod(static_cast<MIPMAP_METHOD>(2)));
    EXPECT_EQ(WRAP_CLAMP, third->GetWrapMethod());
    EXPECT_EQ(MIPMAP_LINEAR, third->GetMipMapMethod());
    EXPECT_EQ("Orv Texture Exception | copy constructor should never be called | src/Renderer/OrvTexture",
              Thrown([&] { OrvTexture copy(*third); }).Full());
    EXPECT_EQ("You tried to create a texture with an invalid ID",
              Thrown([&] { OrvOpenGLTexture().Create(0, &manager); }).message);

    OtherRenderer other;
    OrvTextureManager unknown(&other);
    EXPECT_EQ("Orv Texture Exception | You tried to create a texture but no render type is set | "
              "src/Renderer/OrvTextureManager",
              Thrown([&] { unknown.CreateTexture(); }).Full());
}

TEST_F(OrvTextureGameTest, UploadRecordsTheImageAndRespectsLoading)
{
    OrvQuadColoursImage image("quad.tga");
    OrvOpenGLTexture never;
    EXPECT_EQ("You tried to set the data for a texture that hasn't been created",
              Thrown([&] { never.SetDataFromImage(&image); }).message);

    OrvTexture::SetFromImageCallback([](OrvTexture*) { ++g_callbacks; });
    g_callbacks = 0;
    auto* texture = static_cast<OrvOpenGLTexture*>(game.GetTextureManager()->CreateTexture());
    game.SetIsLoading(true);
    texture->SetDataFromImage(&image);
    EXPECT_EQ(OrvOpenGLTexture::kNoName, texture->GetOpenGLName()) << "nothing reaches GL while loading";
    EXPECT_TRUE(texture->GetImageFileName() == "quad.tga");
    EXPECT_EQ(OrvVector2D(2, 2), texture->GetDimesion());
    game.SetIsLoading(false);
    texture->SetDataFromImage(&image);
    EXPECT_NE(OrvOpenGLTexture::kNoName, texture->GetOpenGLName());
    EXPECT_EQ(GL_TRUE, glIsTexture(texture->GetOpenGLName()));
    EXPECT_EQ(2, g_callbacks);
    OrvTexture::SetFromImageCallback(nullptr);

    EXPECT_FALSE(texture->CreateMiMapLevels(0, &image));
    EXPECT_FALSE(texture->CreateMiMapLevels(9, &image));
    EXPECT_FALSE(texture->CreateMiMapLevels(1, nullptr));
    EXPECT_TRUE(texture->CreateMiMapLevels(2, &image)) << "2 x 2, then 1 x 1";
    EXPECT_FALSE(texture->CreateMiMapLevels(3, &image)) << "the width reaches 0";
    TwoBytePixels odd;
    EXPECT_EQ("Orv Texture Exception | invalid pixel format | src/Renderer/OrvOpenGLTexture",
              Thrown([&] { texture->CreateMiMapLevels(1, &odd); }).Full());

    const unsigned int name = texture->GetOpenGLName();
    texture->DeleteOpenGLName();
    EXPECT_EQ(OrvOpenGLTexture::kNoName, texture->GetOpenGLName());
    EXPECT_EQ(GL_FALSE, glIsTexture(name));
}
