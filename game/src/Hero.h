#ifndef TARNWICK_HERO_H
#define TARNWICK_HERO_H

#include "Actor.h"
#include <OrvEngine/OrvSpriteAnimationPlayer.h>
#include <OrvEngine/OrvSteeringBehavior.h>
#include <OrvEngine/OrvSteeringBehaviorArrive.h>

// The player's figure. The keys or a stick give it a direction; a click on
// the field sends it walking there. It walks (mirrored when it goes left),
// stands, cheers and winces; the last two play once and go back to standing.
class Hero : public Actor
{
public:
    Hero();
    ~Hero() override;

    using Actor::Create;
    void Create(OrvWidgetDesc* desc) override;
    void Update(float seconds) override;

    // The direction asked for, up to length 1; zero for none.
    void SetInput(const OrvVector3D& direction) { m_drive.input = direction; }
    // Walks to a point of the field until it is there or a direction is asked for.
    void GoTo(const OrvVector3D& point);
    bool IsGoing() const { return m_going; }
    void Cheer();
    void Wince();
    // Called at the start of every frame of the walk.
    void SetFootstepCallback(OrvSpriteAnimationPlayer::Callback callback, void* data);

private:
    // Towards the velocity the input asks for; brakes without input.
    class Drive : public OrvSteeringBehavior
    {
    public:
        OrvVector3D input;
        OrvVector3D Compute() override;
    };

    void Steer(OrvSteeringBehavior* behavior);
    void PlayOnce(const char* name);
    static void OneShotEnded(OrvSpriteAnimationPlayer* player, void* hero);

    Drive m_drive;
    OrvSteeringBehaviorArrive m_arrive;
    bool m_going = false;
    bool m_oneShot = false;
    bool m_facingLeft = false;
};

#endif
