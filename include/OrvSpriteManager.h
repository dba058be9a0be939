#ifndef ORV_SPRITE_MANAGER_H
#define ORV_SPRITE_MANAGER_H

#include "OrvTArray.h"
#include "OrvUnicode.h"

class OrvApplication;
class OrvSprite;
class OrvSpriteAnimation;
class OrvTGAImageFile;
class OrvTexture;
class OrvXMLElement;
struct OrvSpriteDesc;

/// Owns every sprite and sprite animation. Sprites are imported on demand from
/// the sets of "SpriteSets.xml" (one image "<set name>.tga" a set) or from a
/// whole image "<name>.tga"; animations from "Animations.xml". CleanUp
/// releases what nothing uses.
class OrvSpriteManager
{
public:
    explicit OrvSpriteManager(OrvApplication* application);
    OrvSpriteManager(const OrvSpriteManager&) = delete;
    OrvSpriteManager& operator=(const OrvSpriteManager&) = delete;
    /// Destroys every sprite, then every animation.
    virtual ~OrvSpriteManager();

    OrvSprite* CreateSprite(const OrvSpriteDesc& desc);
    /// Every sprite of every set of that name, on a new texture per set. Throws
    /// OrvImportSpriteSetException for a document that breaks the format.
    void ImportSpriteSet(const OrvUnicode& setName);
    /// The held sprite, or the set that lists it imported, or the whole image.
    OrvSprite* ImportSprite(const OrvUnicode& spriteName);
    OrvSprite* GetSprite(unsigned int index) const { return m_sprites[index]; }
    OrvSprite* GetSprite(const OrvUnicode& name) const;
    unsigned int GetSpriteCount() const { return m_sprites.GetSize(); }

    /// An empty animation; `speed` is a frame duration in seconds.
    OrvSpriteAnimation* CreateAnimation(const OrvUnicode& name, float speed, bool loop);
    /// The held animation, or the one of "Animations.xml", or a one-frame
    /// looping animation of the sprite of that name.
    OrvSpriteAnimation* ImportSpriteAnimation(const OrvUnicode& name);
    OrvSpriteAnimation* GetSpriteAnimation(const OrvUnicode& name) const;
    unsigned int GetSpriteAnimationCount() const { return m_animations.GetSize(); }

    /// Uploads every sprite texture again: each set's image once, and each
    /// whole-image sprite from its own file.
    void ReloadTextures();
    /// Destroys the sprites, then the animations, that nothing uses.
    void CleanUp();

    OrvApplication* GetApplication() const { return m_application; }

private:
    /// Root of a registered-or-loaded XML document.
    OrvXMLElement* Document(const char* fileName) const;
    OrvTGAImageFile* Image(const OrvUnicode& name) const;
    /// A new texture holding the image.
    OrvTexture* TextureFrom(OrvTGAImageFile* image) const;
    void ImportSet(const OrvXMLElement& set);
    OrvSpriteAnimation* ImportAnimation(const OrvUnicode& name, const OrvXMLElement& element);

    OrvApplication* m_application;
    OrvTArray<OrvSprite> m_sprites;
    OrvTArray<OrvSpriteAnimation> m_animations;
};

#endif
