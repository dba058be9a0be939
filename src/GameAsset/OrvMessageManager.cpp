#include "OrvMessageManager.h"

#include "OrvGameAsset.h"
#include "OrvMessage.h"
#include "OrvMessageException.h"

OrvMessageManager::OrvMessageManager() = default;

OrvMessageManager::~OrvMessageManager()
{
    m_messages.Destroy();
}

void OrvMessageManager::SendMessage(OrvGameAsset* sender, OrvGameAsset* receiver, const OrvUnicode& message,
                                    void* data, int delay)
{
    OrvMessage* sent = new OrvMessage(sender, receiver, message, data, static_cast<float>(delay));
    ORV_ADD_OWNED(m_messages, sent, OrvMessageException, "Not enough memory for another message",
                  "src/GameAsset/OrvMessageManager");
    m_pending.Add(sent);
}

void OrvMessageManager::Update(float seconds)
{
    unsigned int i = 0;
    while (i < m_pending.GetCount())
    {
        OrvMessage* message = m_pending[i];
        if (message->GetDelay() > 0.0f)
        {
            message->ReduceDelay(seconds);
            ++i;
            continue;
        }
        m_pending.RemoveIndex(i);
        if (message->GetReceiver() != nullptr)
            message->GetReceiver()->ReceiveMessage(message);
        else
            // Nobody could ever handle it.
            m_messages.Delete(message);
    }
}

void OrvMessageManager::DeleteMessage(OrvMessage* message)
{
    m_messages.Delete(message);
}

void OrvMessageManager::ForgetReceiver(const OrvGameAsset* receiver)
{
    for (unsigned int i = m_messages.GetSize(); i > 0; --i)
    {
        OrvMessage* message = m_messages[i - 1];
        if (message->GetReceiver() != receiver)
            continue;
        const int pending = m_pending.Find(message);
        if (pending >= 0)
            m_pending.RemoveIndex(static_cast<unsigned int>(pending));
        m_messages.Delete(static_cast<unsigned long>(i - 1));
    }
}

void OrvMessageManager::DeleteAllMessages()
{
    m_messages.DeleteAll();
}
