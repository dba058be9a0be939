#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "OrvFileManager.h"
#include "OrvOpenGLTexture.h"
#include "OrvSprite.h"
#include "OrvSpriteAnimation.h"
#include "OrvSpriteAnimationFrame.h"
#include "OrvSpriteManager.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"
#include "OrvTexture.h"
#include "OrvTextureManager.h"

namespace
{
std::string Sprite(const char* name, const char* x, const char* y, const char* w, const char* h)
{
    return std::string("<Sprite><Name>") + name + "</Name><XOrigin>" + x + "</XOrigin><YOrigin>" + y +
           "</YOrigin><XDimension>" + w + "</XDimension><YDimension>" + h + "</YDimension></Sprite>";
}

std::string Frame(const char* name, const char* extra = "")
{
    return std::string("<Frame><Name>") + name + "</Name><XOffset>1</XOffset><YOffset>2</YOffset>" + extra +
           "</Frame>";
}

class OrvSpriteTest : public OrvGameTest
{
protected:
    void SetUp() override
    {
        OrvGameTest::SetUp();
        sprites = game.GetSpriteManager();
        files = game.GetFileManager();
        SaveTGA("Heroes.tga", 64, 32, [](unsigned int, unsigned int) { return 0xFF0000FFu; });
        SaveTGA("Empty.tga", 8, 8, [](unsigned int, unsigned int) { return 0x00FF00FFu; });
        SaveTGA("hero.tga", 24, 40, [](unsigned int, unsigned int) { return 0x0000FFFFu; });
    }
    void WriteSets(const std::string& sets) { OrvScratchDir::Write("SpriteSets.xml", "<SpriteSets>" + sets + "</SpriteSets>"); }

    OrvSpriteManager* sprites = nullptr;
    OrvFileManager* files = nullptr;
};

const std::string kSets = "<SpriteSet><Name>Heroes</Name>" + Sprite("run0", "0", "0", "16", "32") +
                          Sprite("run1", "16", "0", "16", "32") + Sprite("jump", "32", "0", "32", "32") +
                          "</SpriteSet><SpriteSet><Name>Empty</Name></SpriteSet>";
}  // namespace

TEST_F(OrvSpriteTest, SetsAndWholeImagesBecomeSprites)
{
    WriteSets(kSets);
    sprites->ImportSpriteSet("Heroes");
    ASSERT_EQ(3u, sprites->GetSpriteCount());
    OrvSprite* run1 = sprites->GetSprite("run1");
    EXPECT_EQ(OrvVector2D(16, 0), run1->GetOrigin());
    EXPECT_EQ(OrvVector2D(16, 32), run1->GetDimension());
    EXPECT_EQ(OrvVector2D(64, 32), run1->GetTexture()->GetDimesion());
    EXPECT_EQ(3, run1->GetTexture()->GetUserCount()) << "every sprite of the set uses the one texture";
    EXPECT_EQ(nullptr, files->GetFile("Heroes.tga")) << "the set's image lives in its texture only";
    EXPECT_NE(nullptr, files->GetFile("SpriteSets.xml")) << "the document stays for later imports";

    const unsigned int textures = game.GetTextureManager()->GetTextureCount();
    sprites->ImportSpriteSet("Empty");
    EXPECT_EQ(3u, sprites->GetSpriteCount());
    EXPECT_EQ(textures + 1, game.GetTextureManager()->GetTextureCount()) << "a texture, no sprite";

    const unsigned int lastFile = files->LastFileID;
    EXPECT_EQ(run1, sprites->ImportSprite("run1"));
    EXPECT_EQ(lastFile, files->LastFileID) << "a held sprite reads no file";
    OrvSprite* hero = sprites->ImportSprite("hero");
    EXPECT_EQ(OrvVector2D(0, 0), hero->GetOrigin());
    EXPECT_EQ(OrvVector2D(24, 40), hero->GetDimension());
    EXPECT_NE(nullptr, files->GetFile("hero.tga")) << "a whole image stays registered";

    run1->AddUser();
    sprites->CleanUp();
    ASSERT_EQ(1u, sprites->GetSpriteCount()) << "only the sprite in use stays";
    EXPECT_EQ(run1, sprites->GetSprite(0u));
    run1->RemoveUser();
    EXPECT_EQ("Orv Exception | You removed to many users from sprite ! | src/Sprite/OrvSprite",
              Thrown([&] { run1->RemoveUser(); }).Full());
}

TEST_F(OrvSpriteTest, BrokenSetsAreRefused)
{
    const auto refusal = [&](const std::string& document, const char* set) {
        files->DeleteAllFiles();
        OrvScratchDir::Write("SpriteSets.xml", document);
        return Thrown([&] { sprites->ImportSpriteSet(set); }).message;
    };
    EXPECT_EQ("Invalid node while importing sprite set, should be SpriteSets", refusal("<Sets></Sets>", "Heroes"));
    EXPECT_EQ("Invalid node while importing sprite, should be SpriteSet",
              refusal("<SpriteSets><Set><Name>A</Name></Set></SpriteSets>", "Heroes"));
    EXPECT_EQ("Invalid node child count while importing sprite set, should be 5",
              refusal("<SpriteSets><SpriteSet><Name>Heroes</Name><Sprite><Name>a</Name><XOrigin>0</XOrigin><YOrigin>0"
                      "</YOrigin><XDimension>1</XDimension><YDimension>1</YDimension><Z>1</Z></Sprite></SpriteSet>"
                      "</SpriteSets>",
                      "Heroes"));
    EXPECT_EQ("Invalid node(s) while importing sprite set, should be XOrigin and YOrigin",
              refusal("<SpriteSets><SpriteSet><Name>Heroes</Name><Sprite><Name>a</Name><YOrigin>0</YOrigin><XOrigin>0"
                      "</XOrigin><XDimension>1</XDimension><YDimension>1</YDimension></Sprite></SpriteSet>"
                      "</SpriteSets>",
                      "Heroes"));
    EXPECT_EQ("Invalid node while importing sprite set, should be Sprite",
              refusal("<SpriteSets><SpriteSet><Name>Heroes</Name><Sprit></Sprit></SpriteSet></SpriteSets>", "Heroes"));
    const Thrown childless([&] {
        files->DeleteAllFiles();
        WriteSets("<SpriteSet></SpriteSet>");
        sprites->ImportSprite("x");
    });
    EXPECT_EQ("Orv Array Exception", childless.name);

    // A set named by a zero character must not open the media path itself.
    const Thrown zeroNamed([&] {
        files->DeleteAllFiles();
        WriteSets(std::string("<SpriteSet><Name>") + '\0' + "</Name>" + Sprite("x", "0", "0", "1", "1") +
                  "</SpriteSet>");
        sprites->ImportSprite("x");
    });
    EXPECT_EQ("Orv File Exception", zeroNamed.name) << zeroNamed.message;
}

TEST_F(OrvSpriteTest, AnimationsComeFromTheirFileOrFromASprite)
{
    WriteSets(kSets);
    OrvScratchDir::Write("Animations.xml",
                         "<Animations><Animation><Name>run</Name><Speed>10</Speed><Loop>2</Loop>" + Frame("run0") +
                             Frame("run1", "<XCustom>5</XCustom><YCustom>6</YCustom>") + Frame("run0") +
                             "</Animation><Animation><Name>once</Name><Speed>4</Speed><Loop>0</Loop>" +
                             Frame("jump") + "</Animation><Animation><Name>four</Name><Speed>1</Speed><Loop>0</Loop>" +
                             Frame("jump", "<YCustom>1</YCustom>") +
                             "</Animation><Animation><Name>short</Name><Speed>1</Speed><Loop>0</Loop>" +
                             Frame("jump", "<XCustom>1</XCustom>") + "</Animation></Animations>");
    OrvSpriteAnimation* run = sprites->ImportSpriteAnimation("run");
    EXPECT_FLOAT_EQ(0.1f, run->GetSpeed());
    EXPECT_TRUE(run->GetLoop());
    ASSERT_EQ(3u, run->GetFrameCount());
    EXPECT_EQ(OrvVector2D(1, 2), run->GetFrame(1)->GetSpriteOffset());
    EXPECT_EQ(OrvVector2D(5, 6), run->GetFrame(1)->GetCustomPosition());
    EXPECT_EQ(OrvVector2D(0, 0), run->GetFrame(0)->GetCustomPosition());
    EXPECT_FALSE(sprites->ImportSpriteAnimation("once")->GetLoop());
    const unsigned int lastFile = files->LastFileID;
    EXPECT_EQ(run, sprites->ImportSpriteAnimation("run"));
    EXPECT_EQ(lastFile, files->LastFileID) << "read once";

    // A, B, A: the animation's one user becomes two on A and one on B.
    OrvSprite* run0 = sprites->GetSprite("run0");
    OrvSprite* run1 = sprites->GetSprite("run1");
    run->AddUser();
    EXPECT_EQ(2, run0->GetUserCount());
    EXPECT_EQ(1, run1->GetUserCount());
    run->AddUser();
    EXPECT_EQ(2, run0->GetUserCount()) << "only the first user reaches the sprites";
    run->AddFrame(new OrvSpriteAnimationFrame(run1, OrvVector2D(), OrvVector2D()));
    EXPECT_EQ(2, run1->GetUserCount()) << "a frame added while in use";
    run->RemoveUser();
    run->RemoveUser();
    EXPECT_EQ(0, run0->GetUserCount());
    EXPECT_EQ(0, run1->GetUserCount()) << "the late frame's user goes with the others";
    EXPECT_EQ("You removed to many users from sprite animation!", Thrown([&] { run->RemoveUser(); }).message);

    EXPECT_EQ("Invalid node while importing animation, should be 'XCustom'",
              Thrown([&] { sprites->ImportSpriteAnimation("four"); }).message);
    EXPECT_EQ("Orv Array Exception", Thrown([&] { sprites->ImportSpriteAnimation("short"); }).name)
        << "the missing fifth child";

    OrvSpriteAnimation* single = sprites->ImportSpriteAnimation("hero");
    EXPECT_EQ(1u, single->GetFrameCount());
    EXPECT_TRUE(single->GetLoop());
    EXPECT_EQ(1.0f, single->GetSpeed());
    EXPECT_EQ("The requested animation couldn't be found anywhere in the animations file",
              Thrown([&] { sprites->ImportSpriteAnimation("nowhere"); }).message);
}

TEST_F(OrvSpriteTest, TexturesReloadInTheOrderOfTheirSprites)
{
    WriteSets(kSets + "<SpriteSet><Name>Empty</Name>" + Sprite("dot", "0", "0", "1", "1") + "</SpriteSet>");
    // The second set's texture takes a block freed after the first one's was
    // made, lower in memory: heap addresses come in no particular order.
    std::vector<std::unique_ptr<char[]>> holes;
    for (int i = 0; i < 256; ++i)
        holes.emplace_back(new char[sizeof(OrvOpenGLTexture)]);
    sprites->ImportSpriteSet("Heroes");
    holes.clear();
    sprites->ImportSpriteSet("Empty");
    static std::vector<const OrvTexture*> reloaded;
    reloaded.clear();
    OrvTexture::SetFromImageCallback([](OrvTexture* texture) { reloaded.push_back(texture); });
    sprites->ReloadTextures();
    OrvTexture::SetFromImageCallback(nullptr);
    const std::vector<const OrvTexture*> expected = {sprites->GetSprite("run0")->GetTexture(),
                                                     sprites->GetSprite("dot")->GetTexture()};
    EXPECT_EQ(expected, reloaded) << "first used first, each once";
}

