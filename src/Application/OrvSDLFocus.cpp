#include "OrvSDLFocus.h"

#include <SDL.h>

#include "../Input/OrvSDLEventSource.h"

static_assert(OrvSDLFocus::kMouseFocus == SDL_APPMOUSEFOCUS && OrvSDLFocus::kInputFocus == SDL_APPINPUTFOCUS &&
                  OrvSDLFocus::kActive == SDL_APPACTIVE,
              "the application's focus bits are SDL's");

unsigned int OrvSDLFocus::GetAppState()
{
    return OrvSDLEventSource::AppState() & 0xFFu;
}

void OrvSDLFocus::ShowPointer(bool shown)
{
    SDL_ShowCursor(shown ? SDL_ENABLE : SDL_DISABLE);
}
