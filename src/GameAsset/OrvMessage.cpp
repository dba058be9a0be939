#include "OrvMessage.h"

OrvMessage::OrvMessage() : m_sender(nullptr), m_receiver(nullptr), m_message(""), m_data(nullptr), m_delay(0.0f) {}

OrvMessage::OrvMessage(OrvGameAsset* sender, OrvGameAsset* receiver, const OrvUnicode& message, void* data,
                       float delay)
    : m_sender(sender), m_receiver(receiver), m_message(message), m_data(data), m_delay(delay)
{
}

OrvMessage::~OrvMessage() = default;
