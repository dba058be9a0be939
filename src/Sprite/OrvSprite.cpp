#include "OrvSprite.h"

#include "OrvException.h"
#include "OrvSpriteDesc.h"
#include "OrvTexture.h"

OrvSpriteDesc::OrvSpriteDesc() : name(""), texture(nullptr) {}

OrvSprite::OrvSprite() : m_name(""), m_texture(nullptr), m_users(0) {}

OrvSprite& OrvSprite::operator=(const OrvSprite& other)
{
    m_name = other.m_name;
    m_texture = other.m_texture;
    m_origin = other.m_origin;
    m_dimension = other.m_dimension;
    m_users = other.m_users;
    return *this;
}

OrvSprite::~OrvSprite()
{
    if (m_texture != nullptr)
        m_texture->RemoveUser();
}

void OrvSprite::Create(const OrvSpriteDesc& desc)
{
    // A sprite created again lets go of its earlier texture.
    if (m_texture != nullptr)
        m_texture->RemoveUser();
    m_name = desc.name;
    m_texture = desc.texture;
    m_origin = desc.origin;
    m_dimension = desc.dimension;
    m_users = 0;
    if (m_texture != nullptr)
        m_texture->AddUser();
}

void OrvSprite::RemoveUser()
{
    if (--m_users < 0)
        ORV_THROW(OrvException, "You removed to many users from sprite !", "src/Sprite/OrvSprite");
}
