#ifndef ORV_GAME_ASSET_DESC_H
#define ORV_GAME_ASSET_DESC_H

#include "OrvUnicode.h"
#include "OrvVector3D.h"

class OrvGameAssetManager;

/// What a game asset is created from. Records of derived assets extend it.
struct OrvGameAssetDesc
{
    OrvGameAssetDesc();

    /// Filled by the manager that creates the asset.
    OrvGameAssetManager* manager;
    /// 0 lets the manager choose the next free number.
    int ID;
    OrvUnicode name;
    OrvUnicode type;
    OrvVector3D position;
    OrvVector3D scale;
    float rotation;
    bool render;
    bool enabled;
};

#endif
