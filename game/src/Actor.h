#ifndef TARNWICK_ACTOR_H
#define TARNWICK_ACTOR_H

#include <OrvEngine/OrvApplication.h>
#include <OrvEngine/OrvGameAssetManager.h>
#include <OrvEngine/OrvWidget.h>
#include <OrvEngine/OrvWidgetDesc.h>

// Everything that lives on the field: a widget of the world tree (a moving
// asset whose quad shows its sprite animation) that does not follow the
// cursors. The field is the part of the plane z = 0 the camera shows, less
// a band for the HUD.
class Actor : public OrvWidget
{
public:
    static constexpr float kLeft = -400.0f;
    static constexpr float kRight = 400.0f;
    static constexpr float kBottom = -300.0f;
    static constexpr float kTop = 240.0f;

    // A new T at `position` under the world root, moving at most `maxSpeed`.
    template <class T>
    static T* Spawn(OrvApplication* game, const OrvVector3D& position, float maxSpeed)
    {
        OrvWidgetDesc desc = Describe(position, maxSpeed);
        T* actor = game->GetGameAssetManager()->CreateGameAsset<T, OrvWidgetDesc>(&desc);
        actor->AttachTo(game->GetWorldRoot());
        return actor;
    }

    // Back inside the field, the velocity turned away from the edge it crossed.
    void KeepOnField();
    // Plays `name` from its start, unless it plays already with that mirroring.
    void Play(const char* name, bool mirrorX);
    // Plays `name` once, then `next` in a loop.
    void PlayOnce(const char* name, const char* next, bool mirrorX);

protected:
    static OrvWidgetDesc Describe(const OrvVector3D& position, float maxSpeed);
    OrvApplication* Game() const { return GetApplication(); }
};

#endif
