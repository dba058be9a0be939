#ifndef ORV_SPRITE_ANIMATION_PLAYER_H
#define ORV_SPRITE_ANIMATION_PLAYER_H

#include "OrvTObjectArray.h"
#include "OrvUnicode.h"

class OrvSpriteAnimation;
class OrvSpriteAnimationFrame;

/// Plays one sprite animation at a time: counts the time, tells which frame to
/// show, mirrors on request, chains to a queued next animation at the end and
/// calls the callbacks registered, by animation name, for the start of a frame
/// and for the end of an animation. It holds one user on the current and on
/// the next animation.
class OrvSpriteAnimationPlayer
{
public:
    typedef void (*Callback)(OrvSpriteAnimationPlayer* player, void* userData);

    struct OrvSpriteAnimationCallbackInfo
    {
        OrvUnicode animationName;
        Callback callback = nullptr;
        void* userData = nullptr;
        bool operator==(const OrvSpriteAnimationCallbackInfo& other) const
        {
            return animationName == other.animationName && callback == other.callback && userData == other.userData;
        }
    };

    OrvSpriteAnimationPlayer();
    /// Same animations (with users of its own), time, flags and callbacks.
    OrvSpriteAnimationPlayer(const OrvSpriteAnimationPlayer& other);
    OrvSpriteAnimationPlayer& operator=(const OrvSpriteAnimationPlayer& other);
    virtual ~OrvSpriteAnimationPlayer();

    /// Asking again for what plays, with the same mirroring, does not restart it.
    void SetSpriteAnimation(OrvSpriteAnimation* animation, bool mirrorX, bool mirrorY);
    OrvSpriteAnimation* GetSpriteAnimation() const { return m_current; }
    void SetNextSpriteAnimation(OrvSpriteAnimation* animation, bool mirrorX, bool mirrorY);
    OrvSpriteAnimation* GetNextSpriteAnimation() const { return m_next; }

    void AddTime(float seconds);
    unsigned int GetCurrentFrameIndex() const;
    /// Past the end: the first frame of a loop, else the last one.
    OrvSpriteAnimationFrame* GetCurrentFrame() const;
    void SetCurrentFrame(unsigned int index);
    float GetTime() const { return m_time; }

    void SetIsPlaying(bool playing) { m_playing = playing; }
    bool GetIsPlaying() const { return m_playing; }
    bool GetMirrorX() const { return m_mirrorX; }
    bool GetMirrorY() const { return m_mirrorY; }

    void AddAnimationEndedCallback(const OrvUnicode& animationName, Callback callback, void* userData);
    void AddAnimationFrameStartedCallback(const OrvUnicode& animationName, Callback callback, void* userData);
    void RemoveAnimationEndedCallback(const OrvUnicode& animationName, Callback callback, void* userData);
    void RemoveAnimationFrameStartedCallback(const OrvUnicode& animationName, Callback callback, void* userData);
    void RemoveAnimationEndedCallbacks(const OrvUnicode& animationName);
    void RemoveAnimationFrameStartedCallbacks(const OrvUnicode& animationName);
    void TriggerEndCallbacks();
    void TriggerFrameStartedCallbacks();

private:
    typedef OrvTObjectArray<OrvSpriteAnimationCallbackInfo> Callbacks;
    static void Add(Callbacks& list, const OrvUnicode& name, Callback callback, void* userData);
    static void Remove(Callbacks& list, const OrvUnicode& name, Callback callback, void* userData);
    static void RemoveAllNamed(Callbacks& list, const OrvUnicode& name);
    void Trigger(const Callbacks& list);
    void ReleaseNext();

    OrvSpriteAnimation* m_current;
    OrvSpriteAnimation* m_next;
    float m_time;
    bool m_playing;
    Callbacks m_frameStarted;
    Callbacks m_ended;
    bool m_mirrorX;
    bool m_mirrorY;
    bool m_nextMirrorX;
    bool m_nextMirrorY;
};

#endif
