#ifndef ORV_SPRITE_H
#define ORV_SPRITE_H

#include "OrvUnicode.h"
#include "OrvVector2D.h"

struct OrvSpriteDesc;
class OrvTexture;

/// A named rectangle of a texture, in pixels. The sprite is one of its
/// texture's users from Create to its destruction, and counts its own users so
/// that the sprite manager keeps it while anything shows it.
class OrvSprite
{
public:
    OrvSprite();
    OrvSprite(const OrvSprite&) = delete;
    /// Copies the five fields, the user count included; the texture's count
    /// is not touched.
    OrvSprite& operator=(const OrvSprite& other);
    virtual ~OrvSprite();

    void Create(const OrvSpriteDesc& desc);

    OrvUnicode GetName() const { return m_name; }
    OrvTexture* GetTexture() const { return m_texture; }
    OrvVector2D GetOrigin() const { return m_origin; }
    OrvVector2D GetDimension() const { return m_dimension; }

    void AddUser() { ++m_users; }
    /// Throws OrvException below zero (the count stays there).
    void RemoveUser();
    bool GetIsInUse() const { return m_users > 0; }
    int GetUserCount() const { return m_users; }

private:
    OrvUnicode m_name;
    OrvTexture* m_texture;
    OrvVector2D m_origin;
    OrvVector2D m_dimension;
    int m_users;
};

#endif
