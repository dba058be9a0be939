#ifndef ORV_MOVING_GAME_ASSET_DESC_H
#define ORV_MOVING_GAME_ASSET_DESC_H

#include "OrvGameAssetDesc.h"

/// What a moving game asset is created from.
struct OrvMovingGameAssetDesc : public OrvGameAssetDesc
{
    OrvMovingGameAssetDesc();

    float mass;
    float maxSpeed;
    float maxForce;
    float maxTurnRate;
    float minSpeed;
};

#endif
