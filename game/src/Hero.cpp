#include "Hero.h"

#include <OrvEngine/OrvSteeringBehaviors.h>

namespace
{
// Closer than this to where it was sent, the hero has arrived.
const float kArrived = 12.0f;
}  // namespace

Hero::Hero() = default;

// The behaviours go before the combiner: they leave it as they are destroyed.
Hero::~Hero() = default;

OrvVector3D Hero::Drive::Compute()
{
    const OrvMovingGameAsset* owner = GetSteeringBehaviors()->GetOwner();
    return (input * owner->GetMaxSpeed() - owner->GetVelocity()) * (owner->GetMass() * 8.0f);
}

void Hero::Create(OrvWidgetDesc* desc)
{
    Actor::Create(desc);
    m_arrive.SetArriveDeceleration(0.6f);
    Steer(&m_drive);
    Play("hero_idle", false);
    OrvSpriteAnimationPlayer* player = GetSpriteAnimationPlayer();
    player->AddAnimationEndedCallback("hero_cheer", OneShotEnded, this);
    player->AddAnimationEndedCallback("hero_hurt", OneShotEnded, this);
}

void Hero::Steer(OrvSteeringBehavior* behavior)
{
    GetSteeringBehaviors()->RemoveAllSteeringBehaviors();
    GetSteeringBehaviors()->AddSteeringBehavior(behavior);
}

void Hero::GoTo(const OrvVector3D& point)
{
    m_arrive.SetTarget(point);
    m_going = true;
    Steer(&m_arrive);
}

void Hero::Update(float seconds)
{
    const bool asked = m_drive.input.LengthSquared() > 0.0f;
    if (m_going && (asked || (m_arrive.GetTarget() - GetPosition()).Length() < kArrived))
    {
        m_going = false;
        Steer(&m_drive);
    }
    Actor::Update(seconds);
    KeepOnField();
    const OrvVector3D velocity = GetVelocity();
    if (velocity.X < -5.0f || velocity.X > 5.0f)
        m_facingLeft = velocity.X < 0.0f;
    if (!m_oneShot)
        Play(velocity.LengthSquared() > 20.0f * 20.0f ? "hero_walk" : "hero_idle", m_facingLeft);
}

void Hero::Cheer()
{
    PlayOnce("hero_cheer");
}

void Hero::Wince()
{
    PlayOnce("hero_hurt");
}

void Hero::PlayOnce(const char* name)
{
    m_oneShot = true;
    Actor::PlayOnce(name, "hero_idle", m_facingLeft);
}

void Hero::OneShotEnded(OrvSpriteAnimationPlayer*, void* hero)
{
    static_cast<Hero*>(hero)->m_oneShot = false;
}

void Hero::SetFootstepCallback(OrvSpriteAnimationPlayer::Callback callback, void* data)
{
    GetSpriteAnimationPlayer()->AddAnimationFrameStartedCallback("hero_walk", callback, data);
}
