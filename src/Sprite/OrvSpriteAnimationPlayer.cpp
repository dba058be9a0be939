#include "OrvSpriteAnimationPlayer.h"

#include "OrvSpriteAnimation.h"

OrvSpriteAnimationPlayer::OrvSpriteAnimationPlayer()
    : m_current(nullptr), m_next(nullptr), m_time(0.0f), m_playing(true), m_mirrorX(false), m_mirrorY(false),
      m_nextMirrorX(false), m_nextMirrorY(false)
{
}

OrvSpriteAnimationPlayer::OrvSpriteAnimationPlayer(const OrvSpriteAnimationPlayer& other) : OrvSpriteAnimationPlayer()
{
    *this = other;
}

OrvSpriteAnimationPlayer& OrvSpriteAnimationPlayer::operator=(const OrvSpriteAnimationPlayer& other)
{
    if (this == &other)
        return *this;
    // Users move with the pointers: the new ones are taken before the old ones go.
    if (other.m_current != nullptr)
        other.m_current->AddUser();
    if (other.m_next != nullptr)
        other.m_next->AddUser();
    if (m_current != nullptr)
        m_current->RemoveUser();
    ReleaseNext();
    m_current = other.m_current;
    m_next = other.m_next;
    m_time = other.m_time;
    m_playing = other.m_playing;
    m_frameStarted = other.m_frameStarted;
    m_ended = other.m_ended;
    m_mirrorX = other.m_mirrorX;
    m_mirrorY = other.m_mirrorY;
    m_nextMirrorX = other.m_nextMirrorX;
    m_nextMirrorY = other.m_nextMirrorY;
    return *this;
}

OrvSpriteAnimationPlayer::~OrvSpriteAnimationPlayer()
{
    SetSpriteAnimation(nullptr, false, false);
    ReleaseNext();
}

void OrvSpriteAnimationPlayer::ReleaseNext()
{
    if (m_next != nullptr)
        m_next->RemoveUser();
    m_next = nullptr;
}

void OrvSpriteAnimationPlayer::SetSpriteAnimation(OrvSpriteAnimation* animation, bool mirrorX, bool mirrorY)
{
    if (m_current != nullptr)
        m_current->RemoveUser();
    if (m_current != nullptr && animation != nullptr)
    {
        const bool changed =
            !(animation->GetName() == m_current->GetName()) || mirrorX != m_mirrorX || mirrorY != m_mirrorY;
        if (changed)
        {
            m_time = 0.0f;
            m_current = animation;
            m_mirrorX = mirrorX;
            m_mirrorY = mirrorY;
        }
        m_current->AddUser();
        return;
    }
    m_time = 0.0f;
    m_current = animation;
    m_mirrorX = mirrorX;
    m_mirrorY = mirrorY;
    if (m_current != nullptr)
        m_current->AddUser();
}

void OrvSpriteAnimationPlayer::SetNextSpriteAnimation(OrvSpriteAnimation* animation, bool mirrorX, bool mirrorY)
{
    if (animation != nullptr)
        animation->AddUser();
    ReleaseNext();
    m_next = animation;
    m_nextMirrorX = mirrorX;
    m_nextMirrorY = mirrorY;
}

void OrvSpriteAnimationPlayer::AddTime(float seconds)
{
    // A paused animation stays on its first frame and never ends.
    if (m_current == nullptr || m_current->GetFrameCount() == 0 || !m_playing || m_current->IsPaused())
        return;
    const float time = m_time + seconds;
    const float duration = m_current->GetSpeed() * static_cast<float>(m_current->GetFrameCount());
    if (duration <= time)
    {
        TriggerEndCallbacks();
        if (m_next != nullptr)
        {
            SetSpriteAnimation(m_next, m_nextMirrorX, m_nextMirrorY);
            ReleaseNext();
            m_nextMirrorX = false;
            m_nextMirrorY = false;
        }
        else if (!m_current->GetLoop())
            m_playing = false;
        else
        {
            m_time = 0.0f;
            TriggerFrameStartedCallbacks();
        }
        return;
    }
    const unsigned int before = GetCurrentFrameIndex();
    m_time = time;
    if (GetCurrentFrameIndex() != before)
        TriggerFrameStartedCallbacks();
}

unsigned int OrvSpriteAnimationPlayer::GetCurrentFrameIndex() const
{
    if (m_current == nullptr || m_current->GetFrameCount() == 0)
        return 0;
    const float index = m_time / m_current->GetSpeed();
    // A zero speed, or a negative time, shows the first frame.
    if (!(index >= 0.0f) || index >= 4294967295.0f)
        return 0;
    return static_cast<unsigned int>(index);
}

OrvSpriteAnimationFrame* OrvSpriteAnimationPlayer::GetCurrentFrame() const
{
    if (m_current == nullptr || m_current->GetFrameCount() == 0)
        return nullptr;
    unsigned int index = GetCurrentFrameIndex();
    if (index >= m_current->GetFrameCount())
        index = m_current->GetLoop() ? 0 : m_current->GetFrameCount() - 1;
    return m_current->GetFrame(index);
}

void OrvSpriteAnimationPlayer::SetCurrentFrame(unsigned int index)
{
    if (m_current == nullptr)
        return;
    const bool shown = index < m_current->GetFrameCount() && !m_current->IsPaused();
    m_time = shown ? m_current->GetSpeed() * static_cast<float>(index) : 0.0f;
}

void OrvSpriteAnimationPlayer::Add(Callbacks& list, const OrvUnicode& name, Callback callback, void* userData)
{
    OrvSpriteAnimationCallbackInfo info;
    info.animationName = name;
    info.callback = callback;
    info.userData = userData;
    if (!list.Contains(info))
        list.Add(info);
}

void OrvSpriteAnimationPlayer::Remove(Callbacks& list, const OrvUnicode& name, Callback callback, void* userData)
{
    OrvSpriteAnimationCallbackInfo info;
    info.animationName = name;
    info.callback = callback;
    info.userData = userData;
    const int index = list.Find(info);
    if (index >= 0)
        list.RemoveIndex(static_cast<unsigned int>(index));
}

void OrvSpriteAnimationPlayer::RemoveAllNamed(Callbacks& list, const OrvUnicode& name)
{
    unsigned int i = 0;
    while (i < list.GetCount())
    {
        if (list[i].animationName == name)
            list.RemoveIndex(i);
        else
            ++i;
    }
}

void OrvSpriteAnimationPlayer::Trigger(const Callbacks& list)
{
    if (m_current == nullptr)
        return;
    const OrvUnicode name = m_current->GetName();
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        if (list[i].animationName == name && list[i].callback != nullptr)
            list[i].callback(this, list[i].userData);
}

void OrvSpriteAnimationPlayer::AddAnimationEndedCallback(const OrvUnicode& name, Callback callback, void* userData)
{
    Add(m_ended, name, callback, userData);
}

void OrvSpriteAnimationPlayer::AddAnimationFrameStartedCallback(const OrvUnicode& name, Callback callback,
                                                                void* userData)
{
    Add(m_frameStarted, name, callback, userData);
}

void OrvSpriteAnimationPlayer::RemoveAnimationEndedCallback(const OrvUnicode& name, Callback callback, void* userData)
{
    Remove(m_ended, name, callback, userData);
}

void OrvSpriteAnimationPlayer::RemoveAnimationFrameStartedCallback(const OrvUnicode& name, Callback callback,
                                                                   void* userData)
{
    Remove(m_frameStarted, name, callback, userData);
}

void OrvSpriteAnimationPlayer::RemoveAnimationEndedCallbacks(const OrvUnicode& name)
{
    RemoveAllNamed(m_ended, name);
}

void OrvSpriteAnimationPlayer::RemoveAnimationFrameStartedCallbacks(const OrvUnicode& name)
{
    RemoveAllNamed(m_frameStarted, name);
}

void OrvSpriteAnimationPlayer::TriggerEndCallbacks()
{
    Trigger(m_ended);
}

void OrvSpriteAnimationPlayer::TriggerFrameStartedCallbacks()
{
    Trigger(m_frameStarted);
}
