#include "HighScores.h"

#include <unistd.h>

#include <algorithm>

#include <OrvEngine/OrvFileException.h>
#include <OrvEngine/OrvFileManager.h>
#include <OrvEngine/OrvXMLElement.h>
#include <OrvEngine/OrvXMLFile.h>

namespace
{
std::string Narrow(const OrvUnicode& text)
{
    char narrow[128] = {};
    text.ToCString(narrow, sizeof(narrow), nullptr);
    return narrow;
}

// A file object of the manager's, made as the engine makes its own.
OrvXMLFile* NewXMLFile(OrvFileManager* files)
{
    OrvXMLFile* file = new OrvXMLFile();
    file->Create(files, ++files->LastFileID);
    files->AddOrvFile(file);
    return file;
}
}  // namespace

void HighScores::Load(OrvFileManager* files, const std::string& path)
{
    m_entries.clear();
    if (access(path.c_str(), R_OK) != 0)
    {
        for (const Entry& entry : {Entry{"Arthur", 12}, Entry{"Ariadne", 9}, Entry{"Bertram", 7}, Entry{"Beatrix", 5},
                                   Entry{"Cedric", 3}})
            m_entries.push_back(entry);
        return;
    }
    OrvXMLFile* file = NewXMLFile(files);
    try
    {
        file->Load(path.c_str(), "");
        const OrvXMLElement* root = file->GetXMLRoot();
        for (unsigned int i = 0; root != nullptr && i < root->GetChildCount(); ++i)
        {
            const OrvXMLElement* score = root->GetChild(i);
            const OrvXMLElement* name = score->SearchChildNamed("Name");
            const OrvXMLElement* points = score->SearchChildNamed("Points");
            if (name == nullptr || points == nullptr)
                throw OrvFileException(("Not a table of scores: " + path).c_str(), "game/src/HighScores", __LINE__);
            Add(Narrow(name->GetContent()), points->GetContent().CastToInt());
        }
    }
    catch (...)
    {
        files->DeleteOrvFile(file);
        throw;
    }
    files->DeleteOrvFile(file);
}

void HighScores::Save(OrvFileManager* files, const std::string& path) const
{
    OrvXMLFile* file = NewXMLFile(files);
    OrvXMLElement* root = new OrvXMLElement("HighScores", "");
    for (const Entry& entry : m_entries)
    {
        OrvXMLElement* score = new OrvXMLElement("Score", "");
        score->AddChild(new OrvXMLElement("Name", entry.name.c_str()));
        score->AddChild(new OrvXMLElement("Points", std::to_string(entry.points).c_str()));
        root->AddChild(score);
    }
    // The file's own empty root goes; the new one is the file's from now on.
    delete file->GetXMLRoot();
    file->SetXMLRoot(root);
    try
    {
        file->Save(path.c_str(), OrvFile::SAVE_COMPRESSED);
    }
    catch (...)
    {
        files->DeleteOrvFile(file);
        throw;
    }
    files->DeleteOrvFile(file);
}

void HighScores::Add(const std::string& name, int points)
{
    const auto after = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& e) { return e.points < points; });
    m_entries.insert(after, Entry{name, points});
    if (m_entries.size() > kKept)
        m_entries.resize(kKept);
}

std::vector<std::string> HighScores::Names() const
{
    std::vector<std::string> names;
    for (const Entry& entry : m_entries)
        if (std::find(names.begin(), names.end(), entry.name) == names.end())
            names.push_back(entry.name);
    return names;
}

std::string HighScores::Text() const
{
    // Lines of one length, so that the centred lines make columns.
    std::string text;
    for (const Entry& entry : m_entries)
    {
        const std::string points = std::to_string(entry.points);
        text += entry.name.substr(0, 12) + std::string(12 - std::min<size_t>(entry.name.size(), 12), ' ') +
                std::string(5 - std::min<size_t>(points.size(), 5), ' ') + points + "\n";
    }
    return text;
}
