#include "OrvGameAssetState.h"

OrvGameAssetState::OrvGameAssetState(OrvGameAsset* owner) : m_owner(owner), m_identifier(0) {}

OrvGameAssetState::OrvGameAssetState(OrvGameAsset* owner, int identifier) : m_owner(owner), m_identifier(identifier)
{
}

OrvGameAssetState::~OrvGameAssetState() = default;
