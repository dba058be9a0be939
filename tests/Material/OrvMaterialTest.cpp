#include <gtest/gtest.h>

#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvColoredTextureMaterial.h"
#include "OrvEffect.h"
#include "OrvMaterialShelf.h"
#include "OrvMesh.h"
#include "OrvPass.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"
#include "OrvTexture.h"
#include "OrvTextureManager.h"

namespace
{
using OrvMaterialGameTest = OrvGameTest;
}

TEST(OrvColor, ByteChannelsScaleByOneOver255)
{
    const OrvColor orange(255, 128, 0, 255);
    EXPECT_FLOAT_EQ(1.0f, orange.GetRed());
    EXPECT_NEAR(0.50196f, orange.GetGreen(), 1e-5f);
    EXPECT_EQ(0.0f, orange.GetBlue());
    const OrvColor black;
    EXPECT_EQ(1.0f, black.GetAlpha());
    EXPECT_EQ(0.0f, black.GetRed() + black.GetGreen() + black.GetBlue());
    OrvColor loud(2.0f, -1.0f, 0.5f, 0.25f);
    EXPECT_EQ(2.0f, loud.GetRed()) << "never clamped";
    loud.Set(0, 0, 510, 0);
    EXPECT_NEAR(2.0f, loud.GetBlue(), 1e-6f);
}

TEST(OrvMaterialShelf, RefusesWithoutRendererAndDestroysOnlyItsOwn)
{
    OrvMaterialShelf shelf;
    EXPECT_EQ("Orv Renderer Exception | Renderer is null, can't use material shelf (try calling Init method) | "
              "include/OrvMaterialShelf",
              Thrown([&] { shelf.CreateMaterial<OrvColorMaterial>(); }).Full());

    OrvPass pass;
    EXPECT_EQ(MIPMAP_LINEAR, pass.GetMipMapMethod());
    EXPECT_EQ(WRAP_REPEAT, pass.GetWrapMethod());
    EXPECT_FALSE(pass.SetWrapMethod(static_cast<WRAP_METHOD>(2)));
    OrvTexture clamped;
    clamped.SetWrapMethod(WRAP_CLAMP);
    clamped.SetMipMapMethod(MIPMAP_NEAREST);
    pass.SetTextureUnit(static_cast<OrvTextureUnit>(2), &clamped);
    EXPECT_EQ(nullptr, pass.GetTextureUnit(static_cast<OrvTextureUnit>(2)));
    EXPECT_EQ(nullptr, pass.GetTextureUnit(TEXTURE_UNIT_0)) << "unit 2 stores nothing";
    EXPECT_EQ(WRAP_CLAMP, pass.GetWrapMethod()) << "but the texture's methods still reach the pass";
    EXPECT_EQ(MIPMAP_NEAREST, pass.GetMipMapMethod());
    pass.SetTextureUnit(TEXTURE_UNIT_1, &clamped);
    pass.SetTextureUnit(TEXTURE_UNIT_1, nullptr);
    EXPECT_EQ(nullptr, pass.GetTextureUnit(TEXTURE_UNIT_1));
    EXPECT_EQ(WRAP_CLAMP, pass.GetWrapMethod()) << "a null texture leaves the methods";
}

TEST_F(OrvMaterialGameTest, ShelfMaterialsShareEffectsAndKeepTheirPasses)
{
    OrvMaterialShelf* shelf = game.GetMaterialShelf();
    ASSERT_EQ(renderer, shelf->GetRenderer());
    const unsigned int before = shelf->GetMaterialCount();
    OrvColorMaterial* first = shelf->CreateMaterial<OrvColorMaterial>();
    OrvColorMaterial* second = shelf->CreateMaterial<OrvColorMaterial>();
    EXPECT_EQ(first->GetPass(0)->GetEffect(), second->GetPass(0)->GetEffect());
    EXPECT_NE(first->GetPass(0), second->GetPass(0));
    EXPECT_EQ(BLEND_FACTOR_SRC_ALPHA, first->GetPass(0)->GetSrcBlendFactor());
    EXPECT_EQ(0.0f, first->GetColor().GetAlpha());

    OrvPass copy(*first->GetPass(0));
    EXPECT_EQ(first->GetPass(0)->GetEffect(), copy.GetEffect()) << "a copied pass keeps the shared effect";

    OrvColorMaterial foreign(renderer);
    OrvColorMaterial* foreignPointer = &foreign;
    shelf->DestroyMaterial(foreignPointer);
    EXPECT_EQ(&foreign, foreignPointer) << "not the shelf's: left alone";
    shelf->DestroyMaterial(first);
    EXPECT_EQ(nullptr, first);
    EXPECT_EQ(before + 1, shelf->GetMaterialCount());
    shelf->DestroyMaterial(second);

    // Handed to a mesh, a material is the mesh's: deleting the mesh takes it
    // off the shelf, which never lists a deleted material.
    OrvMesh* mesh = new OrvMesh(renderer);
    const unsigned int withBox = shelf->GetMaterialCount();  // the mesh's box has one too
    mesh->SetMaterial(shelf->CreateMaterial<OrvColorMaterial>());
    EXPECT_EQ(withBox + 1, shelf->GetMaterialCount());
    delete mesh;
    EXPECT_EQ(before, shelf->GetMaterialCount());

    // A shelf that goes first leaves its materials to their meshes.
    OrvMesh* survivor = new OrvMesh(renderer);
    {
        OrvMaterialShelf local;
        local.Init(renderer);
        survivor->SetMaterial(local.CreateMaterial<OrvColorMaterial>());
    }
    delete survivor;
}

TEST_F(OrvMaterialGameTest, ColouredTextureTintsTexelsAndIsSetUpOnce)
{
    OrvTexture* texture = game.GetTextureManager()->CreateTexture();
    texture->AddUser();
    texture->SetMipMapMethod(MIPMAP_NEAREST);
    texture->SetWrapMethod(WRAP_CLAMP);
    OrvQuadColoursImage image;
    texture->SetDataFromImage(&image);

    OrvColoredTextureMaterial material(renderer, texture, OrvColor(1.0f, 0.5f, 1.0f, 1.0f));
    ASSERT_EQ(1u, material.GetPassCount());
    EXPECT_EQ(texture, material.GetPass(0)->GetTextureUnit(TEXTURE_UNIT_0));
    EXPECT_EQ(WRAP_CLAMP, material.GetPass(0)->GetWrapMethod()) << "the pass takes the texture's wrap";
    material.Setup(renderer, nullptr, OrvColor());
    EXPECT_EQ(1u, material.GetPassCount()) << "a second Setup does nothing";
    EXPECT_EQ(texture, material.GetTexture());

    material.ActivatePass(0);
    Quad(0, 0, 64, 64);
    EXPECT_TRUE(PixelIs(16, 16, 0xFF0000)) << "red texel";
    EXPECT_TRUE(PixelIs(48, 16, 0x008000)) << "green texel, green halved";
    EXPECT_TRUE(PixelIs(16, 48, 0x0000FF));
    EXPECT_TRUE(PixelIs(48, 48, 0xFF80FF));

    EXPECT_EQ("Orv Exception | OrvColoredTextureMaterial copy constructor not supported | "
              "src/Material/OrvColoredTextureMaterial",
              Thrown([&] { OrvColoredTextureMaterial copy(material); }).Full());
    EXPECT_EQ("operator= not supported", Thrown([&] { material = material; }).message);

    OrvColoredTextureMaterial empty(nullptr, texture, OrvColor());
    EXPECT_EQ(0u, empty.GetPassCount());
    EXPECT_EQ("SetTexture() - no passes created yet", Thrown([&] { empty.SetTexture(texture); }).message);
    EXPECT_EQ("SetPassParameters() - no passes created yet", Thrown([&] { empty.ActivatePass(0); }).message);
    texture->RemoveUser();
}
