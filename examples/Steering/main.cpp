// Steering: moving game assets (OrvMovingGameAsset) that steer themselves.
// Each turn the forces of an asset's behaviours change its velocity, never
// beyond its max speed. A yellow lure goes round the middle; the red one
// seeks it, the orange one pursues it (aiming where it will be), the green
// one flees it when it comes near, the blue one evades the red one, the
// purple one wanders, and the white one arrives at the grey mark, slowing
// down to rest there. The game owns the behaviours.
//
//   Steering [SECONDS] [--windowed] [--screenshot FILE]
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <memory>
#include <vector>

#include "ExampleApp.h"
#include <OrvEngine/OrvMovingGameAsset.h>
#include <OrvEngine/OrvMovingGameAssetDesc.h>
#include <OrvEngine/OrvSteeringBehaviorArrive.h>
#include <OrvEngine/OrvSteeringBehaviorEvade.h>
#include <OrvEngine/OrvSteeringBehaviorFlee.h>
#include <OrvEngine/OrvSteeringBehaviorPursuit.h>
#include <OrvEngine/OrvSteeringBehaviorSeek.h>
#include <OrvEngine/OrvSteeringBehaviorWander.h>
#include <OrvEngine/OrvSteeringBehaviors.h>

namespace
{
// Goes round the origin, 250 units out, at 150 units a second: its velocity
// is set each turn (no behaviour), so that pursuers can read it.
class Lure : public OrvMovingGameAsset
{
public:
    void Update(float seconds) override
    {
        const OrvVector3D out = GetPosition();
        const float radius = out.Length();
        SetVelocity(OrvVector3D(-out.Y, out.X, 0) * (150.0f / radius) + out * ((250.0f - radius) / radius));
        OrvMovingGameAsset::Update(seconds);
    }
};

class Steering : public ExampleApp
{
public:
    explicit Steering(const ExampleOptions& options) : ExampleApp("Steering", options) {}

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        AddStandardDevices();
        Spawn(GetWorldRoot(), kMark)->SetMesh(MakeQuad(30, 30, MakeColor(OrvColor(120, 120, 120, 255))));
        m_lure = Mover<Lure>(OrvVector3D(250, 0, 0), 200.0f, OrvColor(255, 230, 0, 255), {});
        m_seek = Own<OrvSteeringBehaviorSeek>();
        m_seeker = Mover(OrvVector3D(-400, 300, 0), 220.0f, OrvColor(230, 40, 40, 255), {m_seek});
        OrvSteeringBehaviorPursuit* pursuit = Own<OrvSteeringBehaviorPursuit>();
        pursuit->SetEvader(m_lure);
        m_pursuer = Mover(OrvVector3D(400, -300, 0), 220.0f, OrvColor(255, 140, 0, 255), {pursuit});
        // Forces add up: the fleer keeps coming home, and runs off when the lure passes by.
        m_flee = Own<OrvSteeringBehaviorFlee>();
        m_flee->SetPanicDistanceSqr(200.0f * 200.0f);
        OrvSteeringBehaviorArrive* home = Own<OrvSteeringBehaviorArrive>();
        home->SetTarget(kHome);
        home->SetArriveDeceleration(0.6f);
        m_fleer = Mover(kHome, 220.0f, OrvColor(40, 220, 90, 255), {m_flee, home});
        OrvSteeringBehaviorEvade* evade = Own<OrvSteeringBehaviorEvade>();
        evade->AddPursurer(m_seeker);
        Mover(OrvVector3D(-300, 0, 0), 200.0f, OrvColor(60, 120, 255, 255), {evade});
        OrvSteeringBehaviorWander* wander = Own<OrvSteeringBehaviorWander>();
        wander->SetWanderJitter(3.0f);
        Mover(OrvVector3D(0, -100, 0), 100.0f, OrvColor(200, 80, 255, 255), {wander});
        OrvSteeringBehaviorArrive* arrive = Own<OrvSteeringBehaviorArrive>();
        arrive->SetTarget(kMark);
        m_arriver = Mover(OrvVector3D(300, -250, 0), 250.0f, OrvColor(255, 255, 255, 255), {arrive});
    }

    void Update(float seconds) override
    {
        m_seek->SetTarget(m_lure->GetPosition());
        m_flee->SetTarget(m_lure->GetPosition());
        OrvApplication::Update(seconds);
        m_nearestToFleer = std::min(m_nearestToFleer, Distance(m_fleer, m_lure->GetPosition()));
        for (OrvMovingGameAsset* mover : m_movers)
            KeepInView(mover);
    }

    void OnTerminate() override
    {
        Report("the seeker ends %.0f units from the lure, the pursuer %.0f", Distance(m_seeker, m_lure->GetPosition()),
               Distance(m_pursuer, m_lure->GetPosition()));
        Report("the lure came no nearer the fleer than %.0f units", m_nearestToFleer);
        Report("the arriver rests %.0f units from its mark at %.0f units a second", Distance(m_arriver, kMark),
               m_arriver->GetVelocity().Length());
        // The behaviours leave their assets as they go.
        m_behaviors.clear();
        ExampleApp::OnTerminate();
    }

private:
    const OrvVector3D kMark = OrvVector3D(-250, -250, 0);
    const OrvVector3D kHome = OrvVector3D(0, 100, 0);

    template <class B>
    B* Own()
    {
        m_behaviors.emplace_back(new B());
        return static_cast<B*>(m_behaviors.back().get());
    }

    // A 40 × 20 dart that faces where it goes.
    template <class T = OrvMovingGameAsset>
    T* Mover(const OrvVector3D& position, float maxSpeed, const OrvColor& colour,
             std::initializer_list<OrvSteeringBehavior*> behaviors)
    {
        OrvMovingGameAssetDesc desc;
        desc.position = position;
        desc.maxSpeed = maxSpeed;
        // A velocity at or below the min speed is dropped each turn. Turns come as fast as the machine
        // draws: at a thousand a second, a turn's push from rest stays below the default 10.
        desc.minSpeed = 0.5f;
        T* mover = Make<T>(desc, GetWorldRoot());
        mover->SetMesh(MakeQuad(40, 20, MakeColor(colour)));
        for (OrvSteeringBehavior* behavior : behaviors)
            mover->GetSteeringBehaviors()->AddSteeringBehavior(behavior);
        m_movers.push_back(mover);
        return mover;
    }

    static float Distance(const OrvGameAsset* a, const OrvVector3D& b) { return (a->GetPosition() - b).Length(); }

    // Out of one side of the view, in at the other; turned along its heading.
    static void KeepInView(OrvMovingGameAsset* mover)
    {
        OrvVector3D position = mover->GetPosition();
        if (std::fabs(position.X) > 460.0f)
            position.X = position.X > 0.0f ? -450.0f : 450.0f;
        if (std::fabs(position.Y) > 340.0f)
            position.Y = position.Y > 0.0f ? -330.0f : 330.0f;
        mover->SetPosition(position);
        const OrvVector3D heading = mover->GetDirection();
        mover->SetRotation(std::atan2(heading.Y, heading.X) * 57.29578f);
    }

    std::vector<std::unique_ptr<OrvSteeringBehavior>> m_behaviors;
    std::vector<OrvMovingGameAsset*> m_movers;
    Lure* m_lure = nullptr;
    OrvSteeringBehaviorSeek* m_seek = nullptr;
    OrvSteeringBehaviorFlee* m_flee = nullptr;
    OrvMovingGameAsset* m_seeker = nullptr;
    OrvMovingGameAsset* m_pursuer = nullptr;
    OrvMovingGameAsset* m_fleer = nullptr;
    OrvMovingGameAsset* m_arriver = nullptr;
    float m_nearestToFleer = 1e9f;
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<Steering>(argc, argv);
}
