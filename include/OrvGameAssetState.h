#ifndef ORV_GAME_ASSET_STATE_H
#define ORV_GAME_ASSET_STATE_H

#include "OrvTState.h"

class OrvGameAsset;
class OrvMessage;

/// A behaviour of a game asset: a game derives its states from this class and
/// registers them with the asset's state machine. The state also sees every
/// message its asset handles while it is the current or the global state.
class OrvGameAssetState : public OrvTState<OrvGameAsset>
{
public:
    explicit OrvGameAssetState(OrvGameAsset* owner);
    OrvGameAssetState(OrvGameAsset* owner, int identifier);
    OrvGameAssetState(const OrvGameAssetState& other) = default;
    OrvGameAssetState& operator=(const OrvGameAssetState& other) = default;
    ~OrvGameAssetState() override;

    /// The answer is not examined by the engine.
    virtual bool OnMessage(OrvMessage* message) = 0;

    OrvGameAsset* GetOwner() const { return m_owner; }
    int GetIdentifier() const { return m_identifier; }

protected:
    OrvGameAsset* m_owner;
    int m_identifier;
};

#endif
