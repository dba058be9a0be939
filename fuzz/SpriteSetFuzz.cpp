// Sprite sets: the input is "SpriteSets.xml". Every set it names is imported
// by name, and every sprite it lists is imported by name, as a game asks for
// them; names that are no sprite of any set go to the whole-image path
// ("<name>.tga"). The scratch folder holds "Tiles.tga" for the sets to cut.

#include <vector>

#include "OrvFileManager.h"
#include "OrvFuzzGame.h"
#include "OrvXMLElement.h"
#include "OrvXMLFile.h"

namespace
{
// Names imported per input: each set import uploads a texture.
const unsigned int kSets = 4;
const unsigned int kSpritesPerSet = 4;

orvfuzz::GameBaseline g_baseline;

// The set names, then the sprite names of each set, in document order.
void CollectNames(const OrvXMLElement* root, std::vector<OrvUnicode>& sets, std::vector<OrvUnicode>& sprites)
{
    for (unsigned int i = 0; root != nullptr && i < root->GetChildCount() && sets.size() < kSets; ++i)
    {
        const OrvXMLElement* set = root->GetChild(i);
        if (set == nullptr || set->GetChildCount() == 0)
            continue;
        sets.push_back(set->GetChild(0)->GetContent());
        for (unsigned int j = 1; j < set->GetChildCount() && j <= kSpritesPerSet; ++j)
        {
            const OrvXMLElement* sprite = set->GetChild(j);
            if (sprite != nullptr && sprite->GetChildCount() > 0)
                sprites.push_back(sprite->GetChild(0)->GetContent());
        }
    }
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    g_baseline = orvfuzz::Baseline(orvfuzz::Game());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::FuzzGame& game = orvfuzz::Game();
    orvfuzz::ScratchFile input("SpriteSets.xml", data, size);
    OrvSpriteManager* manager = game.GetSpriteManager();

    std::vector<OrvUnicode> sets, sprites;
    orvfuzz::Refusable([&] {
        // The very document the sprite manager will be served.
        CollectNames(game.GetFileManager()->GetOrLoad<OrvXMLFile>("SpriteSets.xml")->GetXMLRoot(), sets, sprites);
    });
    for (const OrvUnicode& name : sets)
    {
        orvfuzz::Refusable([&] { manager->ImportSpriteSet(name); });
        orvfuzz::Refusable([&] { manager->ImportSprite(name); });
    }
    for (const OrvUnicode& name : sprites)
        orvfuzz::Refusable([&] { manager->ImportSprite(name); });

    orvfuzz::ForgetInput(game, g_baseline);
    return 0;
}
