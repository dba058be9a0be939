#ifndef ORV_MESSAGE_MANAGER_H
#define ORV_MESSAGE_MANAGER_H

#include "OrvTArray.h"
#include "OrvTObjectArray.h"
#include "OrvTSingleton.h"

class OrvGameAsset;
class OrvMessage;
class OrvUnicode;

/// Owns every message from SendMessage until its receiver has handled it,
/// counts the delays down frame by frame and hands each due message to its
/// receiver, in sending order. A message is delivered in the first Update that
/// finds its delay at or below 0, so one frame after the delay ran out.
class OrvMessageManager : public OrvTSingleton<OrvMessageManager>
{
public:
    OrvMessageManager();
    OrvMessageManager(const OrvMessageManager&) = delete;
    OrvMessageManager& operator=(const OrvMessageManager&) = delete;
    /// Releases both lists; the application deletes the messages first.
    virtual ~OrvMessageManager();

    /// A receiver destroyed before it handled the message takes it along
    /// (ForgetReceiver).
    void SendMessage(OrvGameAsset* sender, OrvGameAsset* receiver, const OrvUnicode& message, void* data, int delay);
    void Update(float seconds);
    /// Destroys a message of the manager; any other is left alone.
    void DeleteMessage(OrvMessage* message);
    /// Destroys every message; the pending list is not touched.
    void DeleteAllMessages();
    /// Destroys the messages addressed to `receiver`, pending or delivered and
    /// not yet handled: a game asset calls it as it is destroyed.
    void ForgetReceiver(const OrvGameAsset* receiver);

    unsigned int GetMessageCount() const { return m_messages.GetSize(); }
    unsigned int GetPendingCount() const { return m_pending.GetCount(); }

private:
    OrvTArray<OrvMessage> m_messages;
    OrvTObjectArray<OrvMessage*> m_pending;
};

#endif
