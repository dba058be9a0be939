#include <gtest/gtest.h>

#include <cstdlib>

#include "OrvGameAssetManager.h"
#include "OrvMovingGameAsset.h"
#include "OrvMovingGameAssetDesc.h"
#include "OrvSteeringBehaviorArrive.h"
#include "OrvSteeringBehaviorEvade.h"
#include "OrvSteeringBehaviorFlee.h"
#include "OrvSteeringBehaviorPursuit.h"
#include "OrvSteeringBehaviorSeek.h"
#include "OrvSteeringBehaviorStop.h"
#include "OrvSteeringBehaviorWander.h"
#include "OrvSteeringBehaviors.h"

namespace
{
class OrvSteeringTest : public ::testing::Test
{
protected:
    OrvMovingGameAsset* Make(const OrvVector3D& position)
    {
        OrvMovingGameAssetDesc desc;
        desc.position = position;
        return manager.CreateGameAsset<OrvMovingGameAsset, OrvMovingGameAssetDesc>(&desc);
    }
    // The force of `behavior` attached alone to `asset`.
    OrvVector3D ForceOf(OrvMovingGameAsset* asset, OrvSteeringBehavior& behavior)
    {
        asset->GetSteeringBehaviors()->AddSteeringBehavior(&behavior);
        const OrvVector3D force = asset->GetSteeringBehaviors()->Compute();
        asset->GetSteeringBehaviors()->RemoveSteeringBehavior(&behavior);
        return force;
    }
    OrvGameAssetManager manager{nullptr};
};

bool Near(const OrvVector3D& a, const OrvVector3D& b, float tolerance = 1e-4f)
{
    return (a - b).Length() <= tolerance;
}
}  // namespace

TEST_F(OrvSteeringTest, EachBehavioursForce)
{
    OrvMovingGameAsset* owner = Make(OrvVector3D(0, 0, 0));
    OrvSteeringBehaviorSeek seek;
    seek.SetTarget(OrvVector3D(10, 0, 0));
    EXPECT_EQ(OrvVector3D(150, 0, 0), ForceOf(owner, seek));

    OrvSteeringBehaviorFlee flee;
    flee.SetTarget(OrvVector3D(99, 0, 0));
    EXPECT_EQ(OrvVector3D(-150, 0, 0), ForceOf(owner, flee));
    flee.SetTarget(OrvVector3D(100, 0, 0));
    EXPECT_EQ(OrvVector3D(-150, 0, 0), ForceOf(owner, flee)) << "exactly at the panic distance";
    flee.SetTarget(OrvVector3D(101, 0, 0));
    EXPECT_EQ(OrvVector3D(0, 0, 0), ForceOf(owner, flee));

    OrvSteeringBehaviorArrive arrive;
    EXPECT_EQ(OrvVector3D(0, 0, 0), ForceOf(owner, arrive)) << "already there";
    arrive.SetTarget(OrvVector3D(0, 3, 0));
    EXPECT_TRUE(Near(OrvVector3D(0, 10, 0), ForceOf(owner, arrive)));

    OrvSteeringBehaviorStop stop;
    owner->SetVelocity(OrvVector3D(20, 0, 0));
    EXPECT_TRUE(Near(OrvVector3D(-28, 0, 0), ForceOf(owner, stop)));

    // Evade: no pursuer near, so the inner stop (deceleration 0.3) answers.
    OrvSteeringBehaviorEvade evade;
    OrvMovingGameAsset* far = Make(OrvVector3D(300, 0, 0));
    evade.AddPursurer(far);
    evade.AddPursurer(far);
    EXPECT_EQ(1u, evade.GetPursuerCount());
    EXPECT_TRUE(Near(OrvVector3D(-(20 * 0.3f + 10), 0, 0), ForceOf(owner, evade)));
    OrvMovingGameAsset* near = Make(OrvVector3D(50, 0, 0));
    evade.AddPursurer(near);
    EXPECT_TRUE(Near(OrvVector3D(-170, 0, 0), ForceOf(owner, evade))) << "flee from the near one: -150 - 20";
    evade.SetFriendlyDistance(50);
    EXPECT_EQ(2500.0f, evade.GetFlee()->GetPanicDistanceSqr());

    // Wander: seeded, the first draw moves y, the second x.
    OrvSteeringBehaviorWander wander;
    std::srand(7);
    const float y = static_cast<float>(std::rand() % 200 - 100) / 100.0f;
    const float x = static_cast<float>(std::rand() % 200 - 100) / 100.0f;
    std::srand(7);
    OrvVector3D target = OrvVector3D(10 + x, y, 0).NormalizedVector() * 10.0f;
    EXPECT_TRUE(Near(target + OrvVector3D(10, 0, 0), ForceOf(owner, wander)));
    EXPECT_TRUE(Near(target, wander.GetWanderTarget())) << "the target stays for the next turn";

    OrvSteeringBehaviorSeek detached;
    EXPECT_EQ(OrvVector3D(0, 0, 0), detached.Compute());
}

TEST_F(OrvSteeringTest, PursuitPredictsUnlessHeadOn)
{
    OrvMovingGameAsset* hunter = Make(OrvVector3D(0, 0, 0));
    OrvMovingGameAsset* prey = Make(OrvVector3D(100, 0, 0));
    OrvSteeringBehaviorPursuit pursuit;
    pursuit.SetEvader(prey);
    hunter->SetDirection(OrvVector3D(1, 0, 0));
    prey->SetDirection(OrvVector3D(-1, 0, 0));
    prey->SetVelocity(OrvVector3D(-50, 0, 0));
    ForceOf(hunter, pursuit);
    EXPECT_EQ(OrvVector3D(100, 0, 0), pursuit.GetArrive()->GetTarget()) << "head-on: where it is";

    prey->SetDirection(OrvVector3D(0, 1, 0));
    prey->SetVelocity(OrvVector3D(0, 50, 0));
    ForceOf(hunter, pursuit);
    // lookAhead = 100 / (150 + 50) + turning time 0 (straight ahead) = 0.5.
    EXPECT_TRUE(Near(OrvVector3D(100, 25, 0), pursuit.GetArrive()->GetTarget()));
    EXPECT_EQ(0.0f, hunter->CalculateTurningTime(OrvVector3D(5, 0, 0)));
    EXPECT_EQ(1.0f, hunter->CalculateTurningTime(OrvVector3D(-5, 0, 0)));
}

TEST_F(OrvSteeringTest, IntegrationRestsTruncatesAndKeepsTheHeading)
{
    // A force of (0.2, 0, 0) at dt 0.016: velocity 0.032, below the min speed: at rest.
    class Push : public OrvSteeringBehavior
    {
    public:
        OrvVector3D Compute() override { return force; }
        OrvVector3D force;
    } push;
    OrvMovingGameAsset* asset = Make(OrvVector3D(0, 0, 0));
    asset->GetSteeringBehaviors()->AddSteeringBehavior(&push);
    asset->GetSteeringBehaviors()->AddSteeringBehavior(&push);
    EXPECT_EQ(1u, asset->GetSteeringBehaviors()->GetSteeringBehaviorCount());
    push.force.Set(0.2f, 0, 0);
    asset->Update(0.016f);
    EXPECT_EQ(OrvVector3D(0, 0, 0), asset->GetVelocity());
    EXPECT_EQ(OrvVector3D(0, 0, 0), asset->GetPosition());

    push.force.Set(0, 1000, 0);
    asset->Update(0.1f);
    EXPECT_FLOAT_EQ(150.0f, asset->GetVelocity().Length()) << "cut to the max speed";
    EXPECT_EQ(OrvVector3D(0, 1, 0), asset->GetDirection());
    EXPECT_EQ(OrvVector3D(-1, 0, 0), asset->GetSide());
    EXPECT_TRUE(Near(OrvVector3D(0, 15, 0), asset->GetPosition()));

    push.force.Set(0, -14.5f, 0);
    asset->Update(1.0f);
    EXPECT_EQ(OrvVector3D(0, 0, 0), asset->GetVelocity()) << "150 - 145 = 5: standing still";
    EXPECT_EQ(OrvVector3D(0, 1, 0), asset->GetDirection()) << "the heading stays";

    // Disabled: no move, but the children still update.
    class Child : public OrvGameAsset
    {
    public:
        void Update(float seconds) override
        {
            ++updates;
            OrvGameAsset::Update(seconds);
        }
        int updates = 0;
    };
    OrvGameAssetDesc desc;
    Child* child = manager.CreateGameAsset<Child, OrvGameAssetDesc>(&desc);
    child->AttachTo(asset);
    asset->SetEnabled(false, false);
    push.force.Set(0, 1000, 0);
    const OrvVector3D before = asset->GetPosition();
    asset->Update(0.1f);
    EXPECT_EQ(before, asset->GetPosition());
    EXPECT_EQ(1, child->updates);

    asset->GetSteeringBehaviors()->RemoveAllSteeringBehaviors();
    EXPECT_EQ(nullptr, push.GetSteeringBehaviors());
}
