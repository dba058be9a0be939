#ifndef ORV_SPRITE_ANIMATION_H
#define ORV_SPRITE_ANIMATION_H

#include "OrvTArray.h"
#include "OrvUnicode.h"

class OrvSpriteAnimationFrame;

/// A named sequence of frames (owned) shown one frame duration each, once or
/// in a loop. While it has users, the sprites of its frames have one user per
/// frame showing them.
///
/// A frame duration that is not a positive, finite number of seconds (a
/// "Speed" of 0 in an animations file gives an infinite one) makes a paused
/// animation: it shows its first frame and never ends.
class OrvSpriteAnimation
{
public:
    OrvSpriteAnimation();
    OrvSpriteAnimation(const OrvSpriteAnimation&) = delete;
    OrvSpriteAnimation& operator=(const OrvSpriteAnimation&) = delete;
    virtual ~OrvSpriteAnimation();

    /// Name, frame duration in seconds and loop; no user. The frames stay.
    void Create(const OrvUnicode& name, float speed, bool loop);
    /// The animation owns the frame; in use, the frame's sprite gets a user.
    void AddFrame(OrvSpriteAnimationFrame* frame);
    /// Destroys the frame; its sprite's count is left as it is.
    void DeleteFrame(unsigned int index);
    OrvSpriteAnimationFrame* GetFrame(unsigned int index) const { return m_frames[index]; }
    unsigned int GetFrameCount() const { return m_frames.GetSize(); }

    OrvUnicode GetName() const { return m_name; }
    void SetSpeed(float speed) { m_speed = speed; }
    /// The duration of one frame, in seconds.
    float GetSpeed() const { return m_speed; }
    /// The frame duration is not a positive, finite number.
    bool IsPaused() const { return !(m_speed > 0.0f && m_speed <= 3.4e38f); }
    bool GetLoop() const { return m_loop; }

    void AddUser();
    /// Throws OrvException below zero (the count stays there).
    void RemoveUser();
    bool GetIsInUse() const { return m_users > 0; }
    int GetUserCount() const { return m_users; }

private:
    OrvUnicode m_name;
    OrvTArray<OrvSpriteAnimationFrame> m_frames;
    float m_speed;
    bool m_loop;
    int m_users;
};

#endif
