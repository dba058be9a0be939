#ifndef ORV_MESSAGE_H
#define ORV_MESSAGE_H

#include "OrvUnicode.h"

class OrvGameAsset;

/// A named note from one game asset to another with an untyped data pointer
/// (not owned), delivered once its delay in seconds has run out.
class OrvMessage
{
public:
    /// Name "", no sender or receiver, no data, no delay.
    OrvMessage();
    OrvMessage(OrvGameAsset* sender, OrvGameAsset* receiver, const OrvUnicode& message, void* data, float delay);
    OrvMessage(const OrvMessage& other) = default;
    OrvMessage& operator=(const OrvMessage& other) = default;
    virtual ~OrvMessage();

    OrvGameAsset* GetSender() const { return m_sender; }
    OrvGameAsset* GetReceiver() const { return m_receiver; }
    const OrvUnicode& GetMessage() const { return m_message; }
    void* GetData() const { return m_data; }
    float GetDelay() const { return m_delay; }
    /// The delay may fall below 0.
    void ReduceDelay(float seconds) { m_delay -= seconds; }

private:
    OrvGameAsset* m_sender;
    OrvGameAsset* m_receiver;
    OrvUnicode m_message;
    void* m_data;
    float m_delay;
};

#endif
