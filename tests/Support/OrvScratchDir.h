#ifndef ORV_SCRATCH_DIR_H
#define ORV_SCRATCH_DIR_H

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

// A fresh temporary directory that becomes the working directory for the life
// of the object; the previous working directory comes back and the directory
// is removed afterwards. Files are written and read relative to it.
class OrvScratchDir
{
public:
    OrvScratchDir()
    {
        char previous[4096];
        if (getcwd(previous, sizeof(previous)) != nullptr)
            m_previous = previous;
        char pattern[] = "/tmp/orvtest-XXXXXX";
        const char* made = mkdtemp(pattern);
        EXPECT_NE(nullptr, made);
        m_path = made != nullptr ? made : "/tmp";
        EXPECT_EQ(0, chdir(m_path.c_str()));
    }

    ~OrvScratchDir()
    {
        if (!m_previous.empty() && chdir(m_previous.c_str()) != 0)
            ADD_FAILURE() << "cannot return to " << m_previous;
        const std::string command = "rm -rf '" + m_path + "'";
        if (std::system(command.c_str()) != 0)
            ADD_FAILURE() << "cannot remove " << m_path;
    }

    // Writes bytes to a path relative to the directory, creating parent folders.
    static void Write(const std::string& name, const std::string& bytes)
    {
        const std::string::size_type slash = name.rfind('/');
        if (slash != std::string::npos)
        {
            const std::string command = "mkdir -p '" + name.substr(0, slash) + "'";
            EXPECT_EQ(0, std::system(command.c_str()));
        }
        std::ofstream out(name, std::ios::binary);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    static std::string Read(const std::string& name)
    {
        std::ifstream in(name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

    static bool Exists(const std::string& name) { return access(name.c_str(), F_OK) == 0; }

private:
    std::string m_previous;
    std::string m_path;
};

#endif
