#ifndef TARNWICK_HIGH_SCORES_H
#define TARNWICK_HIGH_SCORES_H

#include <string>
#include <vector>

class OrvFileManager;

// The best rounds, highest first, kept in a compressed XML file:
// <HighScores><Score><Name>…</Name><Points>…</Points></Score>…</HighScores>.
class HighScores
{
public:
    struct Entry
    {
        std::string name;
        int points;
    };
    static constexpr unsigned int kKept = 8;

    // Reads `path`; a missing file gives the table every new game starts with.
    // A file that is not such a table is refused with the engine's exception.
    void Load(OrvFileManager* files, const std::string& path);
    void Save(OrvFileManager* files, const std::string& path) const;

    // Inserts in order (after equal scores); the table keeps its best kKept.
    void Add(const std::string& name, int points);
    // Every name, once, best first.
    std::vector<std::string> Names() const;
    // One "name  points" line an entry, all of one length.
    std::string Text() const;
    const std::vector<Entry>& Entries() const { return m_entries; }

private:
    std::vector<Entry> m_entries;
};

#endif
