#ifndef ORV_TEXTURE_H
#define ORV_TEXTURE_H

#include "OrvUnicode.h"
#include "OrvVector2D.h"

class OrvImageFile;
class OrvTextureManager;

/// Texture filtering: nearest texel or linear. Both enumerations hold any int;
/// setters refuse values above 1.
enum MIPMAP_METHOD : int
{
    MIPMAP_NEAREST = 0,
    MIPMAP_LINEAR = 1
};

/// Texture coordinates outside 0..1: repeat or clamp.
enum WRAP_METHOD : int
{
    WRAP_REPEAT = 0,
    WRAP_CLAMP = 1
};

/// An image held by the graphics device, shared by whatever draws with it and
/// counted by its users. Only the texture manager creates textures, and it
/// deletes those without users at the end of each frame.
class OrvTexture
{
public:
    OrvTexture();
    /// Textures are never copied: throws OrvTextureException.
    OrvTexture(const OrvTexture& other);
    /// Does nothing.
    OrvTexture& operator=(const OrvTexture& other);
    virtual ~OrvTexture();

    /// Gives the texture its identifier (never 0) and its manager.
    virtual void Create(int id, OrvTextureManager* manager);
    /// Takes the image's name and size, then calls the class-wide callback.
    virtual void SetDataFromImage(OrvImageFile* image);

    void AddUser() { ++m_users; }
    /// Throws OrvException once the count falls below 0 (and leaves it there).
    void RemoveUser();
    bool IsInUse() const { return m_users > 0; }
    int GetUserCount() const { return m_users; }

    /// These two travel with the texture for the game's use; a pass takes them
    /// over when the texture is set on it. Values above 1 are refused (false).
    bool SetMipMapMethod(MIPMAP_METHOD method);
    MIPMAP_METHOD GetMipMapMethod() const { return m_mipMapMethod; }
    bool SetWrapMethod(WRAP_METHOD method);
    WRAP_METHOD GetWrapMethod() const { return m_wrapMethod; }

    OrvTextureManager* GetTextureManager() const { return m_textureManager; }
    int GetID() const { return m_id; }
    void SetImageFileName(const OrvUnicode& name) { m_imageFileName = name; }
    const OrvUnicode& GetImageFileName() const { return m_imageFileName; }
    /// X is the width, Y the height, in pixels.
    void SetDimesion(const OrvVector2D& dimension) { m_dimension = dimension; }
    const OrvVector2D& GetDimesion() const { return m_dimension; }

    /// One callback for all textures, called by SetDataFromImage; null clears it.
    static void SetFromImageCallback(void (*callback)(OrvTexture*));
    void OnSetFromImage();

protected:
    MIPMAP_METHOD m_mipMapMethod;
    WRAP_METHOD m_wrapMethod;
    OrvTextureManager* m_textureManager;
    int m_id;
    OrvUnicode m_imageFileName;
    OrvVector2D m_dimension;
    int m_users;
};

#endif
