#include "OrvSpriteManager.h"

#include <new>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "OrvAnimationFileCurruptedException.h"
#include "OrvApplication.h"
#include "OrvFileManager.h"
#include "OrvImportSpriteSetException.h"
#include "OrvInvalidAnimationException.h"
#include "OrvInvalidSpriteException.h"
#include "OrvSprite.h"
#include "OrvSpriteAnimation.h"
#include "OrvSpriteAnimationFrame.h"
#include "OrvSpriteDesc.h"
#include "OrvTGAImageFile.h"
#include "OrvTexture.h"
#include "OrvTextureManager.h"
#include "OrvXMLElement.h"
#include "OrvXMLFile.h"

namespace
{
const char* const kSource = "src/Sprite/OrvSpriteManager";

void Require(bool condition, const char* message)
{
    if (!condition)
        ORV_THROW(OrvImportSpriteSetException, message, kSource);
}

void RequireInFile(bool condition, const char* message)
{
    if (!condition)
        ORV_THROW(OrvAnimationFileCurruptedException, message, kSource);
}

// Runs an import: memory it cannot get refuses the file with the importer's
// own exception instead of ending the game with std::bad_alloc.
template <class Exception, class Work>
auto Importing(const char* what, Work work) -> decltype(work())
{
    try
    {
        return work();
    }
    catch (const std::bad_alloc&)
    {
        ORV_THROW(Exception, what, kSource);
    }
}

bool Named(const OrvXMLElement& element, const char* name)
{
    return element.GetName() == name;
}

float Number(const OrvXMLElement& element)
{
    return element.GetContent().CastToFloat();
}
}  // namespace

OrvSpriteManager::OrvSpriteManager(OrvApplication* application) : m_application(application) {}

OrvSpriteManager::~OrvSpriteManager()
{
    m_sprites.DeleteAll();
    m_animations.DeleteAll();
}

OrvSprite* OrvSpriteManager::CreateSprite(const OrvSpriteDesc& desc)
{
    OrvSprite* sprite = new OrvSprite();
    sprite->Create(desc);
    ORV_ADD_OWNED(m_sprites, sprite, OrvInvalidSpriteException, "Not enough memory for another sprite", kSource);
    return sprite;
}

OrvSprite* OrvSpriteManager::GetSprite(const OrvUnicode& name) const
{
    for (unsigned int i = 0; i < m_sprites.GetSize(); ++i)
        if (m_sprites[i]->GetName() == name)
            return m_sprites[i];
    return nullptr;
}

OrvSpriteAnimation* OrvSpriteManager::GetSpriteAnimation(const OrvUnicode& name) const
{
    for (unsigned int i = 0; i < m_animations.GetSize(); ++i)
        if (m_animations[i]->GetName() == name)
            return m_animations[i];
    return nullptr;
}

OrvXMLElement* OrvSpriteManager::Document(const char* fileName) const
{
    OrvXMLFile* file = m_application->GetFileManager()->GetOrLoad<OrvXMLFile>(fileName);
    return file != nullptr ? file->GetXMLRoot() : nullptr;
}

OrvTGAImageFile* OrvSpriteManager::Image(const OrvUnicode& name) const
{
    return m_application->GetFileManager()->GetOrLoad<OrvTGAImageFile>(name + ".tga");
}

OrvTexture* OrvSpriteManager::TextureFrom(OrvTGAImageFile* image) const
{
    OrvTexture* texture = m_application->GetTextureManager()->CreateTexture();
    texture->SetDataFromImage(image);
    return texture;
}

void OrvSpriteManager::ImportSpriteSet(const OrvUnicode& setName)
{
    return Importing<OrvImportSpriteSetException>("Not enough memory to import the sprite set", [&] {
        const OrvXMLElement* root = Document("SpriteSets.xml");
        Require(root != nullptr && Named(*root, "SpriteSets"),
                "Invalid node while importing sprite set, should be SpriteSets");
        for (unsigned int i = 0; i < root->GetChildCount(); ++i)
        {
            const OrvXMLElement& set = *root->GetChild(i);
            Require(Named(set, "SpriteSet"), "Invalid node while importing sprite, should be SpriteSet");
            Require(Named(*set.GetChild(0), "Name"), "Invalid node while importing sprite, should be Name");
            if (set.GetChild(0)->GetContent() == setName)
                ImportSet(set);
        }
    });
}

void OrvSpriteManager::ImportSet(const OrvXMLElement& set)
{
    OrvTGAImageFile* image = Image(set.GetChild(0)->GetContent());
    OrvTexture* texture = TextureFrom(image);
    m_application->GetFileManager()->DeleteOrvFile(image);
    for (unsigned int i = 1; i < set.GetChildCount(); ++i)
    {
        const OrvXMLElement& sprite = *set.GetChild(i);
        Require(Named(sprite, "Sprite"), "Invalid node while importing sprite set, should be Sprite");
        Require(sprite.GetChildCount() == 5, "Invalid node child count while importing sprite set, should be 5");
        Require(Named(*sprite.GetChild(0), "Name"), "Invalid node while importing sprite set, should be Name");
        Require(Named(*sprite.GetChild(1), "XOrigin") && Named(*sprite.GetChild(2), "YOrigin"),
                "Invalid node(s) while importing sprite set, should be XOrigin and YOrigin");
        Require(Named(*sprite.GetChild(3), "XDimension") && Named(*sprite.GetChild(4), "YDimension"),
                "Invalid node(s) while importing sprite set, should be XDimension and YDimension");
        OrvSpriteDesc desc;
        desc.name = sprite.GetChild(0)->GetContent();
        desc.texture = texture;
        desc.origin.Set(Number(*sprite.GetChild(1)), Number(*sprite.GetChild(2)));
        desc.dimension.Set(Number(*sprite.GetChild(3)), Number(*sprite.GetChild(4)));
        CreateSprite(desc);
    }
}

OrvSprite* OrvSpriteManager::ImportSprite(const OrvUnicode& spriteName)
{
    return Importing<OrvImportSpriteSetException>("Not enough memory to import the sprite", [&] {
        if (OrvSprite* held = GetSprite(spriteName))
            return held;
        const OrvXMLElement* root = Document("SpriteSets.xml");
        Require(root != nullptr && Named(*root, "SpriteSets"), "Invalid node while importing sprite, should be SpriteSets");
        for (unsigned int i = 0; i < root->GetChildCount(); ++i)
        {
            const OrvXMLElement& set = *root->GetChild(i);
            Require(Named(set, "SpriteSet"), "Invalid node while importing sprite, should be SpriteSet");
            Require(Named(*set.GetChild(0), "Name"), "Invalid node while importing sprite, should be Name");
            for (unsigned int j = 1; j < set.GetChildCount(); ++j)
            {
                const OrvXMLElement& sprite = *set.GetChild(j);
                Require(Named(*sprite.GetChild(0), "Name"), "Invalid node while importing sprite, should be Name");
                if (sprite.GetChild(0)->GetContent() == spriteName)
                {
                    ImportSpriteSet(set.GetChild(0)->GetContent());
                    return GetSprite(spriteName);
                }
            }
        }
        // Listed nowhere: the name is a whole image, which stays registered.
        OrvTGAImageFile* image = Image(spriteName);
        if (image == nullptr)
            ORV_THROW(OrvInvalidSpriteException, "Sprite can't be found in any of the sprite sets !", kSource);
        OrvSpriteDesc desc;
        desc.name = spriteName;
        desc.texture = TextureFrom(image);
        desc.dimension.Set(static_cast<float>(image->GetWidth()), static_cast<float>(image->GetHeight()));
        return CreateSprite(desc);
    });
}

OrvSpriteAnimation* OrvSpriteManager::CreateAnimation(const OrvUnicode& name, float speed, bool loop)
{
    OrvSpriteAnimation* animation = new OrvSpriteAnimation();
    animation->Create(name, speed, loop);
    ORV_ADD_OWNED(m_animations, animation, OrvInvalidAnimationException, "Not enough memory for another animation",
                  kSource);
    return animation;
}

OrvSpriteAnimation* OrvSpriteManager::ImportSpriteAnimation(const OrvUnicode& name)
{
    return Importing<OrvAnimationFileCurruptedException>("Not enough memory to import the animation", [&] {
        if (OrvSpriteAnimation* held = GetSpriteAnimation(name))
            return held;
        const OrvXMLElement* root = Document("Animations.xml");
        for (unsigned int i = 0; root != nullptr && i < root->GetChildCount(); ++i)
        {
            const OrvXMLElement& element = *root->GetChild(i);
            RequireInFile(Named(element, "Animation"), "Invalid node while importing animation, should be 'Animation'");
            RequireInFile(Named(*element.GetChild(0), "Name"), "Invalid node while importing animation, should be 'Name'");
            if (element.GetChild(0)->GetContent() == name)
                return ImportAnimation(name, element);
        }
        OrvSprite* sprite = nullptr;
        try
        {
            sprite = ImportSprite(name);
        }
        catch (const OrvException&)
        {
            sprite = nullptr;
        }
        if (sprite == nullptr)
            ORV_THROW(OrvInvalidAnimationException,
                      "The requested animation couldn't be found anywhere in the animations file", kSource);
        OrvSpriteAnimation* animation = new OrvSpriteAnimation();
        animation->Create(name, 1.0f, true);
        animation->AddFrame(new OrvSpriteAnimationFrame(sprite, OrvVector2D(), OrvVector2D()));
        ORV_ADD_OWNED(m_animations, animation, OrvInvalidAnimationException, "Not enough memory for another animation",
                  kSource);
        return animation;
    });
}

OrvSpriteAnimation* OrvSpriteManager::ImportAnimation(const OrvUnicode& name, const OrvXMLElement& element)
{
    RequireInFile(Named(*element.GetChild(1), "Speed"), "Invalid node while importing animation, should be 'Speed'");
    RequireInFile(Named(*element.GetChild(2), "Loop"), "Invalid node while importing animation, should be 'Loop'");
    OrvSpriteAnimation* animation = new OrvSpriteAnimation();
    animation->Create(name, 1.0f / Number(*element.GetChild(1)), element.GetChild(2)->GetContent().CastToInt() != 0);
    try
    {
        for (unsigned int i = 3; i < element.GetChildCount(); ++i)
        {
            const OrvXMLElement& frame = *element.GetChild(i);
            RequireInFile(Named(frame, "Frame"), "Invalid node while importing animation, should be 'Frame'");
            RequireInFile(Named(*frame.GetChild(0), "Name"), "Invalid node while importing animation, should be 'Name'");
            RequireInFile(Named(*frame.GetChild(1), "XOffset"),
                          "Invalid node while importing animation, should be 'XOffset'");
            RequireInFile(Named(*frame.GetChild(2), "YOffset"),
                          "Invalid node while importing animation, should be 'YOffset'");
            OrvVector2D custom;
            if (frame.GetChildCount() != 3)
            {
                RequireInFile(Named(*frame.GetChild(3), "XCustom"),
                              "Invalid node while importing animation, should be 'XCustom'");
                RequireInFile(Named(*frame.GetChild(4), "YCustom"),
                              "Invalid node while importing animation, should be 'YCustom'");
                custom.Set(Number(*frame.GetChild(3)), Number(*frame.GetChild(4)));
            }
            OrvSprite* sprite = ImportSprite(frame.GetChild(0)->GetContent());
            animation->AddFrame(new OrvSpriteAnimationFrame(
                sprite, OrvVector2D(Number(*frame.GetChild(1)), Number(*frame.GetChild(2))), custom));
        }
    }
    catch (...)
    {
        // A broken animation is not kept half made.
        delete animation;
        throw;
    }
    ORV_ADD_OWNED(m_animations, animation, OrvInvalidAnimationException, "Not enough memory for another animation",
                  kSource);
    return animation;
}

void OrvSpriteManager::ReloadTextures()
{
    // A texture holding a set is reloaded once, from the set's image: the
    // sprites remember only their own names, so the set names come from the
    // document again. Textures are reloaded in the order of the sprites
    // (first use first), the same from run to run.
    std::vector<std::pair<OrvTexture*, OrvUnicode>> images;
    std::unordered_set<const OrvTexture*> seen;
    const OrvXMLElement* root = nullptr;
    try
    {
        root = Document("SpriteSets.xml");
    }
    catch (const OrvException&)
    {
        root = nullptr;
    }
    for (unsigned int i = 0; i < m_sprites.GetSize(); ++i)
    {
        OrvSprite* sprite = m_sprites[i];
        if (sprite->GetTexture() == nullptr || !seen.insert(sprite->GetTexture()).second)
            continue;
        OrvUnicode imageName = sprite->GetName();
        for (unsigned int s = 0; root != nullptr && s < root->GetChildCount(); ++s)
        {
            const OrvXMLElement* set = root->GetChild(s);
            for (unsigned int j = 1; j < set->GetChildCount(); ++j)
                if (set->GetChild(j)->GetChildCount() > 0 && set->GetChild(j)->GetChild(0)->GetContent() == sprite->GetName())
                    imageName = set->GetChild(0)->GetContent();
        }
        images.emplace_back(sprite->GetTexture(), imageName);
    }
    for (const auto& entry : images)
    {
        OrvTGAImageFile* image = Image(entry.second);
        entry.first->SetDataFromImage(image);
    }
}

void OrvSpriteManager::CleanUp()
{
    unsigned int i = 0;
    while (i < m_sprites.GetSize())
    {
        if (m_sprites[i]->GetIsInUse())
            ++i;
        else
            m_sprites.Delete(static_cast<unsigned long>(i));
    }
    i = 0;
    while (i < m_animations.GetSize())
    {
        if (m_animations[i]->GetIsInUse())
            ++i;
        else
            m_animations.Delete(static_cast<unsigned long>(i));
    }
}
