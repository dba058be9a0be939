#ifndef ORV_BENCH_GAME_H
#define ORV_BENCH_GAME_H

#include <OrvEngine/OrvApplication.h>

// A game with empty hooks: the benchmarks drive the engine themselves.
class BenchGame : public OrvApplication
{
public:
    void OnInitialise() override {}
    void OnTerminate() override {}
    void OnRenderWorld() override {}
    void OnRenderHUD() override {}
};

#endif
