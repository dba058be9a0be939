// Steering benchmark: 10,000 moving assets under one root, each with one seek
// behaviour towards a point that moves every frame. Prints nanoseconds per
// asset per frame for the root's Update (steering, integration and the
// position refresh of every asset).
//
//   orvsteerbench [--frames N]
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <OrvEngine/OrvGameAsset.h>
#include <OrvEngine/OrvGameAssetDesc.h>
#include <OrvEngine/OrvGameAssetManager.h>
#include <OrvEngine/OrvMovingGameAsset.h>
#include <OrvEngine/OrvMovingGameAssetDesc.h>
#include <OrvEngine/OrvSteeringBehaviorSeek.h>
#include <OrvEngine/OrvSteeringBehaviors.h>

int main(int argc, char** argv)
{
    const int kAssets = 10000;
    unsigned int frames = 200;
    if (argc == 3 && std::strcmp(argv[1], "--frames") == 0)
        frames = static_cast<unsigned int>(std::atoi(argv[2]) > 0 ? std::atoi(argv[2]) : 1);

    OrvGameAssetManager manager(nullptr);
    OrvGameAssetDesc rootDesc;
    OrvGameAsset* root = manager.CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&rootDesc);
    std::vector<OrvSteeringBehaviorSeek> seeks(kAssets);
    for (int i = 0; i < kAssets; ++i)
    {
        OrvMovingGameAssetDesc desc;
        desc.position.Set(static_cast<float>(i % 100) * 10.0f, static_cast<float>(i / 100) * 10.0f, 0.0f);
        OrvMovingGameAsset* asset = manager.CreateGameAsset<OrvMovingGameAsset, OrvMovingGameAssetDesc>(&desc);
        asset->AttachTo(root);
        asset->GetSteeringBehaviors()->AddSteeringBehavior(&seeks[i]);
    }

    const auto start = std::chrono::steady_clock::now();
    for (unsigned int frame = 0; frame < frames; ++frame)
    {
        const OrvVector3D target(static_cast<float>(frame % 100) * 5.0f, 500.0f, 0.0f);
        for (OrvSteeringBehaviorSeek& seek : seeks)
            seek.SetTarget(target);
        root->Update(0.016f);
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%d moving assets, one seek each, %u frames: %.1f ns per asset per frame (%.2f ms a frame)\n",
                kAssets, frames, seconds * 1e9 / (static_cast<double>(frames) * kAssets), seconds * 1e3 / frames);
    // The behaviours go before the assets that hold them.
    for (unsigned int i = 0; i < manager.GetGameAssetCount(); ++i)
        if (auto* moving = dynamic_cast<OrvMovingGameAsset*>(manager.GetGameAsset(i)))
            moving->GetSteeringBehaviors()->RemoveAllSteeringBehaviors();
    return 0;
}
