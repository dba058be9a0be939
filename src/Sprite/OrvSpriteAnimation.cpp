#include "OrvSpriteAnimation.h"

#include "OrvException.h"
#include "OrvSprite.h"
#include "OrvSpriteAnimationFrame.h"

namespace
{
const char* const kSource = "src/Sprite/OrvSpriteAnimation";
}

OrvSpriteAnimation::OrvSpriteAnimation() : m_name(""), m_speed(0.0f), m_loop(false), m_users(0) {}

OrvSpriteAnimation::~OrvSpriteAnimation()
{
    m_frames.DeleteAll();
}

void OrvSpriteAnimation::Create(const OrvUnicode& name, float speed, bool loop)
{
    m_name = name;
    m_speed = speed;
    m_loop = loop;
    m_users = 0;
}

void OrvSpriteAnimation::AddFrame(OrvSpriteAnimationFrame* frame)
{
    ORV_ADD_OWNED(m_frames, frame, OrvException, "Not enough memory for another frame", kSource);
    if (GetIsInUse() && frame != nullptr && frame->GetSprite() != nullptr)
        frame->GetSprite()->AddUser();
}

void OrvSpriteAnimation::DeleteFrame(unsigned int index)
{
    m_frames.Delete(static_cast<unsigned long>(index));
}

void OrvSpriteAnimation::AddUser()
{
    if (++m_users != 1)
        return;
    for (unsigned int i = 0; i < m_frames.GetSize(); ++i)
        if (OrvSprite* sprite = m_frames[i]->GetSprite())
            sprite->AddUser();
}

void OrvSpriteAnimation::RemoveUser()
{
    if (--m_users < 0)
        ORV_THROW(OrvException, "You removed to many users from sprite animation!", "src/Sprite/OrvSpriteAnimation");
    if (m_users != 0)
        return;
    for (unsigned int i = 0; i < m_frames.GetSize(); ++i)
        if (OrvSprite* sprite = m_frames[i]->GetSprite())
            sprite->RemoveUser();
}
