#ifndef ORV_SESSION_H
#define ORV_SESSION_H

#include <string>
#include <vector>

class OrvFileManager;
class OrvXMLElement;

/// A recorded play session: the number rand() was seeded with, and for every
/// turn the frame time the engine used and each input event the devices took.
/// The application writes one while it records (OrvApplication::SetRecordFile,
/// or ORV_RECORD=file) and plays one back instead of the live devices
/// (SetReplayFile, or ORV_REPLAY=file). The file is an XML document, version 1:
///
///     <OrvSession>
///       <Version>1</Version>
///       <Seed>1234</Seed>
///       <Devices>7</Devices>
///       <Window>1024 768</Window>
///       <T>0.016666668 K1,273,0 M400,300,2,0</T>
///       ...
///     </OrvSession>
///
/// Devices holds the kinds of input the recorded game had (OrvInputDevice's
/// kTakes... bits: 1 keys, 2 mouse, 4 joypad). Window, which may be left out,
/// is the size in pixels the game drew at: a replay opens a window of that
/// size (never the full screen), so that the recorded pointer lands where it
/// did whatever the desktop's size. Each T is one turn, in order:
/// its frame time in seconds, then its events, each a letter followed by whole
/// numbers separated by commas:
///
///     K down,key,char       a key went down (1) or up (0): SDL key number, typed character or 0
///     M x,y,dx,dy           the pointer moved to (x, y), by (dx, dy)
///     B down,button,x,y     a mouse button (SDL numbering) at (x, y)
///     A pad,axis,value      a joypad axis, -32768 to 32767
///     J down,pad,button     a joypad button
///     H pad,hat,value       a joypad hat (SDL's hat bits)
///     F state               the window's focus bits became state
///
/// Reading refuses, with OrvFileException naming the file and the turn, a
/// document cut short, another version, an event it does not know or numbers
/// out of range.
class OrvSession
{
public:
    static const int kVersion = 1;

    /// One event: its letter and up to four numbers.
    struct Event
    {
        char kind = 0;
        int values[4] = {0, 0, 0, 0};
    };
    /// One turn: the seconds it advanced the game by, and what it took.
    struct Turn
    {
        float seconds = 0.0f;
        std::vector<Event> events;
    };

    /// How many numbers an event of that letter holds; 0 for an unknown letter.
    static int CountValues(char kind);
    /// The input kinds (kTakes... bits) an event of that letter goes to.
    static unsigned int TakenBy(char kind);

    /// Reads the session file through the file manager (any path it finds).
    void Load(OrvFileManager* files, const std::string& name);
    /// Reads the session from a document's root; `name` goes into messages.
    void Read(const OrvXMLElement* root, const std::string& name);

    /// The text of one turn as it stands between <T> and </T>.
    static std::string TurnText(const Turn& turn);

    unsigned int GetSeed() const { return m_seed; }
    void SetSeed(unsigned int seed) { m_seed = seed; }
    unsigned int GetDevices() const { return m_devices; }
    void SetDevices(unsigned int devices) { m_devices = devices; }
    /// The window's size; 0 × 0 where the file does not say.
    unsigned int GetWindowWidth() const { return m_windowWidth; }
    unsigned int GetWindowHeight() const { return m_windowHeight; }
    void SetWindow(unsigned int width, unsigned int height)
    {
        m_windowWidth = width;
        m_windowHeight = height;
    }
    const std::vector<Turn>& GetTurns() const { return m_turns; }
    std::vector<Turn>& GetTurns() { return m_turns; }

private:
    unsigned int m_seed = 0;
    unsigned int m_devices = 0;
    unsigned int m_windowWidth = 0;
    unsigned int m_windowHeight = 0;
    std::vector<Turn> m_turns;
};

#endif
