#include "Actor.h"

#include <OrvEngine/OrvSpriteAnimation.h>
#include <OrvEngine/OrvSpriteAnimationPlayer.h>
#include <OrvEngine/OrvSpriteManager.h>

OrvWidgetDesc Actor::Describe(const OrvVector3D& position, float maxSpeed)
{
    OrvWidgetDesc desc;
    desc.position = position;
    desc.maxSpeed = maxSpeed;
    desc.listenToCursors = false;
    return desc;
}

void Actor::KeepOnField()
{
    OrvVector3D position = GetPosition();
    OrvVector3D velocity = GetVelocity();
    const bool outX = position.X < kLeft || position.X > kRight;
    const bool outY = position.Y < kBottom || position.Y > kTop;
    if (!outX && !outY)
        return;
    if (outX)
    {
        position.X = position.X < kLeft ? kLeft : kRight;
        velocity.X = -velocity.X;
    }
    if (outY)
    {
        position.Y = position.Y < kBottom ? kBottom : kTop;
        velocity.Y = -velocity.Y;
    }
    SetPosition(position);
    SetVelocity(velocity);
}

void Actor::Play(const char* name, bool mirrorX)
{
    OrvSpriteAnimationPlayer* player = GetSpriteAnimationPlayer();
    const OrvSpriteAnimation* playing = player->GetSpriteAnimation();
    if (playing != nullptr && playing->GetName() == name && player->GetMirrorX() == mirrorX && player->GetIsPlaying())
        return;
    PlaySpriteAnimation(name, mirrorX, false);
}

void Actor::PlayOnce(const char* name, const char* next, bool mirrorX)
{
    PlaySpriteAnimation(name, mirrorX, false, next, mirrorX, false);
}
