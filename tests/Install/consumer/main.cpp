// A game built against the installed engine: one turn, then out.
#include <OrvEngine/OrvEngine.h>

#include <cstdio>
#include <sys/stat.h>

class OneTurn : public OrvApplication
{
    void OnInitialise() override {}
    void OnTerminate() override {}
    void Update(float seconds) override
    {
        OrvApplication::Update(seconds);
        Exit();
    }
    void OnRenderWorld() override {}
    void OnRenderHUD() override {}
};

int main()
{
#ifdef ORV_MEDIA_DIR
    struct stat info;
    if (stat(ORV_MEDIA_DIR, &info) != 0 || !S_ISDIR(info.st_mode))
    {
        std::fprintf(stderr, "no media folder at %s\n", ORV_MEDIA_DIR);
        return 1;
    }
#endif
    OneTurn game;
    game.Run();
    OrvUnicode text("installed");
    std::printf("consumer ran, %u characters\n", text.Length());
    return text.Length() == 9 ? 0 : 1;
}
