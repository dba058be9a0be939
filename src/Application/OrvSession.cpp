#include "OrvSession.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvInputDevice.h"
#include "OrvXMLElement.h"
#include "OrvXMLFile.h"

namespace
{
const char* const kSource = "src/Application/OrvSession";

[[noreturn]] void Refuse(const std::string& name, const std::string& what)
{
    ORV_THROW(OrvFileException, "The session file " + name + " " + what, kSource);
}

[[noreturn]] void RefuseTurn(const std::string& name, size_t turn, const std::string& what)
{
    Refuse(name, "holds " + what + " at turn " + std::to_string(turn));
}

// The element's content as bytes; false when it holds characters beyond ASCII.
bool Ascii(const OrvXMLElement* element, std::string& text)
{
    text.clear();
    const OrvUnicode& content = element->GetContent();
    const char16_t* units = content.GetData();
    for (unsigned int i = 0; i < content.Length(); ++i)
    {
        if (units[i] == 0)
            break;
        if (units[i] > 0x7F)
            return false;
        text.push_back(static_cast<char>(units[i]));
    }
    return true;
}

// A whole number in [low, high] that fills `text`.
bool WholeNumber(const std::string& text, long low, long high, long& value)
{
    if (text.empty() || text.size() > 12)
        return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtol(text.c_str(), &end, 10);
    return errno == 0 && *end == '\0' && value >= low && value <= high;
}

// The ranges of an event's numbers, by letter.
struct Shape
{
    char kind;
    int count;
    unsigned int takenBy;
    long low[4];
    long high[4];
};

const Shape kShapes[] = {
    {'K', 3, OrvInputDevice::kTakesKeys, {0, 0, 0, 0}, {1, 1023, 0xFFFF, 0}},
    {'M', 4, OrvInputDevice::kTakesMouse, {-65536, -65536, -65536, -65536}, {65536, 65536, 65536, 65536}},
    {'B', 4, OrvInputDevice::kTakesMouse, {0, 0, -65536, -65536}, {1, 255, 65536, 65536}},
    {'A', 3, OrvInputDevice::kTakesJoypad, {0, 0, -32768, 0}, {255, 255, 32767, 0}},
    {'J', 3, OrvInputDevice::kTakesJoypad, {0, 0, 0, 0}, {1, 255, 255, 0}},
    {'H', 3, OrvInputDevice::kTakesJoypad, {0, 0, 0, 0}, {255, 255, 15, 0}},
    {'F', 1, 0, {0, 0, 0, 0}, {255, 0, 0, 0}},
};

const Shape* ShapeOf(char kind)
{
    for (const Shape& shape : kShapes)
        if (shape.kind == kind)
            return &shape;
    return nullptr;
}

void ReadTurn(const std::string& text, const std::string& name, size_t index, OrvSession::Turn& turn)
{
    size_t at = 0;
    auto nextWord = [&](std::string& word) {
        while (at < text.size() && (text[at] == ' ' || text[at] == '\n' || text[at] == '\t' || text[at] == '\r'))
            ++at;
        const size_t start = at;
        while (at < text.size() && !(text[at] == ' ' || text[at] == '\n' || text[at] == '\t' || text[at] == '\r'))
            ++at;
        word.assign(text, start, at - start);
        return !word.empty();
    };
    std::string word;
    if (!nextWord(word))
        RefuseTurn(name, index, "no frame time");
    char* end = nullptr;
    const float seconds = std::strtof(word.c_str(), &end);
    if (*end != '\0' || !std::isfinite(seconds) || seconds < 0.0f || seconds > 3600.0f)
        RefuseTurn(name, index, "a frame time that is not a number of seconds (" + word.substr(0, 32) + ")");
    turn.seconds = seconds;
    turn.events.clear();
    while (nextWord(word))
    {
        const Shape* shape = ShapeOf(word[0]);
        if (shape == nullptr)
            RefuseTurn(name, index, "an event it does not know (" + word.substr(0, 32) + ")");
        OrvSession::Event event;
        event.kind = word[0];
        size_t from = 1;
        for (int i = 0; i < shape->count; ++i)
        {
            const size_t comma = i + 1 < shape->count ? word.find(',', from) : word.size();
            long value = 0;
            if (comma == std::string::npos ||
                !WholeNumber(word.substr(from, comma - from), shape->low[i], shape->high[i], value))
                RefuseTurn(name, index, "a malformed event (" + word.substr(0, 32) + ")");
            event.values[i] = static_cast<int>(value);
            from = comma + 1;
        }
        turn.events.push_back(event);
    }
}

// The number of complete turns before the document breaks off, for the message.
size_t CompleteTurns(const std::string& name)
{
    std::ifstream in(name, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    size_t count = 0;
    for (size_t at = bytes.find("</T>"); at != std::string::npos; at = bytes.find("</T>", at + 4))
        ++count;
    return count;
}
}  // namespace

int OrvSession::CountValues(char kind)
{
    const Shape* shape = ShapeOf(kind);
    return shape != nullptr ? shape->count : 0;
}

unsigned int OrvSession::TakenBy(char kind)
{
    const Shape* shape = ShapeOf(kind);
    return shape != nullptr ? shape->takenBy : 0;
}

void OrvSession::Load(OrvFileManager* files, const std::string& name)
{
    OrvXMLFile* document = nullptr;
    try
    {
        document = files->GetOrLoad<OrvXMLFile>(name.c_str());
    }
    catch (const OrvFileException&)
    {
        std::ifstream exists(name);
        if (!exists)
            Refuse(name, "cannot be read");
        Refuse(name, "is cut short or is not an XML document: it breaks off in turn " +
                         std::to_string(CompleteTurns(name)));
    }
    try
    {
        // A recorder writes a whole document after every turn: one without
        // its root's end was cut short (a full disk, a copy broken off).
        std::string tail;
        const OrvUnicode& text = document->GetText();
        const char16_t* units = text.GetData();
        unsigned int end = text.Length();
        while (end > 0 && (units[end - 1] == 0 || units[end - 1] == ' ' || units[end - 1] == '\n' ||
                           units[end - 1] == '\r' || units[end - 1] == '\t'))
            --end;
        static const std::string kRootEnd = "</OrvSession>";
        for (unsigned int i = end >= kRootEnd.size() ? end - static_cast<unsigned int>(kRootEnd.size()) : 0; i < end; ++i)
            tail.push_back(units[i] < 0x80 ? static_cast<char>(units[i]) : '?');
        if (tail != kRootEnd)
        {
            size_t turns = 0;
            for (unsigned int i = 0; i + 3 < text.Length(); ++i)
                turns += units[i] == '<' && units[i + 1] == '/' && units[i + 2] == 'T' && units[i + 3] == '>';
            Refuse(name, "is cut short: it breaks off in turn " + std::to_string(turns));
        }
        Read(document->GetXMLRoot(), name);
    }
    catch (...)
    {
        files->DeleteOrvFile(document);
        throw;
    }
    files->DeleteOrvFile(document);
}

void OrvSession::Read(const OrvXMLElement* root, const std::string& name)
{
    if (root == nullptr || !(root->GetName() == "OrvSession"))
        Refuse(name, "is not a session (its root element is not OrvSession)");
    std::string text;
    long value = 0;
    const OrvXMLElement* version = root->SearchChildNamed("Version");
    if (version == nullptr || !Ascii(version, text) || !WholeNumber(text, 0, 1000000, value))
        Refuse(name, "has no version");
    if (value != kVersion)
        Refuse(name, "is of version " + std::to_string(value) + "; this engine reads version " +
                         std::to_string(kVersion));
    const OrvXMLElement* seed = root->SearchChildNamed("Seed");
    if (seed == nullptr || !Ascii(seed, text) || !WholeNumber(text, 0, 0xFFFFFFFFl, value))
        Refuse(name, "has no seed for rand()");
    m_seed = static_cast<unsigned int>(value);
    const OrvXMLElement* devices = root->SearchChildNamed("Devices");
    if (devices == nullptr || !Ascii(devices, text) || !WholeNumber(text, 0, 7, value))
        Refuse(name, "does not say which input devices it was recorded with");
    m_devices = static_cast<unsigned int>(value);
    m_windowWidth = m_windowHeight = 0;
    if (const OrvXMLElement* window = root->SearchChildNamed("Window"))
    {
        const size_t space = Ascii(window, text) ? text.find(' ') : std::string::npos;
        long height = 0;
        if (space == std::string::npos || !WholeNumber(text.substr(0, space), 1, 16384, value) ||
            !WholeNumber(text.substr(space + 1), 1, 16384, height))
            Refuse(name, "does not give its window's size as two whole numbers (1024 768)");
        SetWindow(static_cast<unsigned int>(value), static_cast<unsigned int>(height));
    }

    m_turns.clear();
    for (unsigned int i = 0; i < root->GetChildCount(); ++i)
    {
        const OrvXMLElement* child = root->GetChild(i);
        if (!(child->GetName() == "T"))
            continue;
        const size_t index = m_turns.size();
        if (!Ascii(child, text))
            RefuseTurn(name, index, "characters beyond ASCII");
        Turn turn;
        ReadTurn(text, name, index, turn);
        for (const Event& event : turn.events)
            if ((TakenBy(event.kind) & ~m_devices) != 0)
                RefuseTurn(name, index, std::string("an event of a device it says it was not recorded with (") +
                                            event.kind + ")");
        m_turns.push_back(std::move(turn));
    }
}

std::string OrvSession::TurnText(const Turn& turn)
{
    char number[32];
    std::snprintf(number, sizeof(number), "%.9g", static_cast<double>(turn.seconds));
    std::string text = number;
    for (const Event& event : turn.events)
    {
        text += ' ';
        text += event.kind;
        const int count = CountValues(event.kind);
        for (int i = 0; i < count; ++i)
        {
            if (i > 0)
                text += ',';
            text += std::to_string(event.values[i]);
        }
    }
    return text;
}
