// Sprite animations: the input is "Animations.xml". Every animation it names
// is imported by name, as a game plays it; its frames pull their sprites from
// the fixed "SpriteSets.xml" (set "Tiles", sprites t0 to t3) or, for names no
// set lists, from whole images.

#include <vector>

#include "OrvFileManager.h"
#include "OrvFuzzGame.h"
#include "OrvXMLElement.h"
#include "OrvXMLFile.h"

namespace
{
const unsigned int kAnimations = 8;

const char* const kSpriteSets =
    "<SpriteSets>\n"
    "<SpriteSet><Name>Tiles</Name>\n"
    "<Sprite><Name>t0</Name><XOrigin>0</XOrigin><YOrigin>0</YOrigin><XDimension>16</XDimension><YDimension>16</YDimension></Sprite>\n"
    "<Sprite><Name>t1</Name><XOrigin>16</XOrigin><YOrigin>0</YOrigin><XDimension>16</XDimension><YDimension>16</YDimension></Sprite>\n"
    "<Sprite><Name>t2</Name><XOrigin>0</XOrigin><YOrigin>16</YOrigin><XDimension>16</XDimension><YDimension>16</YDimension></Sprite>\n"
    "<Sprite><Name>t3</Name><XOrigin>16</XOrigin><YOrigin>16</YOrigin><XDimension>16</XDimension><YDimension>16</YDimension></Sprite>\n"
    "</SpriteSet>\n"
    "</SpriteSets>\n";

orvfuzz::GameBaseline g_baseline;
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    g_baseline = orvfuzz::Baseline(orvfuzz::Game({{"SpriteSets.xml", kSpriteSets}}));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::FuzzGame& game = orvfuzz::Game();
    orvfuzz::ScratchFile input("Animations.xml", data, size);

    std::vector<OrvUnicode> names;
    orvfuzz::Refusable([&] {
        const OrvXMLElement* root = game.GetFileManager()->GetOrLoad<OrvXMLFile>("Animations.xml")->GetXMLRoot();
        for (unsigned int i = 0; root != nullptr && i < root->GetChildCount() && names.size() < kAnimations; ++i)
        {
            const OrvXMLElement* animation = root->GetChild(i);
            if (animation != nullptr && animation->GetChildCount() > 0)
                names.push_back(animation->GetChild(0)->GetContent());
        }
    });
    for (const OrvUnicode& name : names)
        orvfuzz::Refusable([&] { game.GetSpriteManager()->ImportSpriteAnimation(name); });

    orvfuzz::ForgetInput(game, g_baseline);
    return 0;
}
