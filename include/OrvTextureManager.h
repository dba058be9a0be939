#ifndef ORV_TEXTURE_MANAGER_H
#define ORV_TEXTURE_MANAGER_H

#include "OrvTArray.h"
#include "OrvTSingleton.h"

class OrvRenderer;
class OrvTexture;

/// Creates and owns every texture. Identifiers run 1, 2, 3... over the life of
/// the manager and are never reused; textures without users are deleted by
/// CleanUp at the end of each frame.
class OrvTextureManager : public OrvTSingleton<OrvTextureManager>
{
public:
    explicit OrvTextureManager(OrvRenderer* renderer);
    OrvTextureManager(const OrvTextureManager&) = delete;
    OrvTextureManager& operator=(const OrvTextureManager&) = delete;
    /// Deletes every texture still held.
    virtual ~OrvTextureManager();

    /// A new texture of the renderer's class, created with the next identifier
    /// and registered; it has no user yet.
    OrvTexture* CreateTexture();
    /// A new, not yet created texture of the class that fits the renderer.
    OrvTexture* CreateRightType();
    /// Deletes the textures nobody uses, keeping the others in order.
    void CleanUp();
    /// Uploads every texture again from its image file, read as TGA unless the
    /// file manager holds an image of that name; the file is released after
    /// the upload. A registered file of that name that is no image is refused
    /// with OrvTextureException. Textures that never had an image are passed
    /// over.
    void ReloadTextures();

    unsigned int GetTextureCount() const { return m_textures.GetSize(); }
    OrvTexture* GetTexture(unsigned int index) const { return m_textures[index]; }
    OrvRenderer* GetRenderer() const { return m_renderer; }

private:
    OrvRenderer* m_renderer;
    OrvTArray<OrvTexture> m_textures;
    int m_nextID;
};

#endif
