// orvmedia: makes the images and sounds the engine's example uses, so that no
// media has to come from elsewhere.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "OrvException.h"
#include "OrvFileManager.h"
#include "OrvTGAImageFile.h"

namespace
{
const char* const kUsage =
    "Usage: orvmedia checker OUT.tga WIDTH HEIGHT CELL\n"
    "       orvmedia notes OUT.wav MILLISECONDS HERTZ...\n"
    "       orvmedia --help\n"
    "\n"
    "checker  a 32-bit TGA image of CELL x CELL squares, alternating a colour\n"
    "         ramp (red across, blue up) with white, fully opaque.\n"
    "notes    a 16-bit mono 22050 Hz WAV file playing each note (0 for a rest)\n"
    "         for MILLISECONDS, softened at both ends.\n";

const int kFailed = 1;
const int kBadUsage = 2;

bool ParseSize(const char* text, unsigned int& value)
{
    char* end = nullptr;
    const unsigned long parsed = std::strtoul(text, &end, 10);
    if (end == text || *end != '\0' || parsed == 0 || parsed > 4096)
        return false;
    value = static_cast<unsigned int>(parsed);
    return true;
}

// An image the generators fill pixel by pixel, red first.
class Canvas : public OrvTGAImageFile
{
public:
    Canvas(unsigned int width, unsigned int height)
    {
        SetImageTypeCode(2);
        SetImagePixelSize(32);
        SetWidth(width);
        SetHeight(height);
        ResetImageData();
    }

    void Put(unsigned int x, unsigned int y, unsigned char r, unsigned char g, unsigned char b, unsigned char a)
    {
        unsigned char* pixel = m_data + (static_cast<unsigned long>(y) * m_width + x) * 4;
        pixel[0] = r;
        pixel[1] = g;
        pixel[2] = b;
        pixel[3] = a;
    }

    void SaveAs(const std::string& name)
    {
        OrvFileManager files;
        Create(&files, 1);
        Save(name.c_str(), SAVE_DEFAULT);
        Close();
    }
};

void PutLe(std::string& out, unsigned long value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

int Notes(const std::string& out, unsigned int milliseconds, const std::vector<double>& hertz)
{
    const unsigned long rate = 22050;
    const unsigned long perNote = rate * milliseconds / 1000;
    std::string samples;
    for (double frequency : hertz)
        for (unsigned long i = 0; i < perNote; ++i)
        {
            // A short fade in and out keeps the notes from clicking.
            const double edge = std::min(1.0, std::min(i, perNote - i) / (rate * 0.005));
            const double value = frequency > 0 ? std::sin(2.0 * M_PI * frequency * i / rate) * 9000.0 * edge : 0.0;
            PutLe(samples, static_cast<unsigned long>(static_cast<long>(value)) & 0xFFFF, 2);
        }
    std::string wav = "RIFF";
    PutLe(wav, 36 + samples.size(), 4);
    wav += "WAVEfmt ";
    PutLe(wav, 16, 4);
    PutLe(wav, 1, 2);        // PCM
    PutLe(wav, 1, 2);        // mono
    PutLe(wav, rate, 4);
    PutLe(wav, rate * 2, 4); // byte rate
    PutLe(wav, 2, 2);        // block alignment
    PutLe(wav, 16, 2);       // bits a sample
    wav += "data";
    PutLe(wav, samples.size(), 4);
    wav += samples;
    std::ofstream file(out, std::ios::binary);
    file.write(wav.data(), static_cast<std::streamsize>(wav.size()));
    if (!file)
    {
        std::fprintf(stderr, "orvmedia: cannot write %s\n", out.c_str());
        return kFailed;
    }
    return 0;
}

int Checker(const std::string& out, unsigned int width, unsigned int height, unsigned int cell)
{
    Canvas canvas(width, height);
    for (unsigned int y = 0; y < height; ++y)
        for (unsigned int x = 0; x < width; ++x)
        {
            if (((x / cell) + (y / cell)) % 2 == 0)
                canvas.Put(x, y, 255, 255, 255, 255);
            else
                canvas.Put(x, y, static_cast<unsigned char>(x * 255 / width), 64,
                           static_cast<unsigned char>(y * 255 / height), 255);
        }
    canvas.SaveAs(out);
    return 0;
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0)
    {
        std::fputs(kUsage, stdout);
        return 0;
    }
    if (argc >= 5 && std::strcmp(argv[1], "notes") == 0)
    {
        unsigned int milliseconds = 0;
        std::vector<double> hertz;
        bool ok = ParseSize(argv[3], milliseconds);
        for (int i = 4; i < argc && ok; ++i)
        {
            char* end = nullptr;
            hertz.push_back(std::strtod(argv[i], &end));
            ok = end != argv[i] && *end == '\0' && hertz.back() >= 0 && hertz.back() < 20000;
        }
        if (!ok)
        {
            std::fputs(kUsage, stderr);
            return kBadUsage;
        }
        return Notes(argv[2], milliseconds, hertz);
    }
    unsigned int width = 0, height = 0, cell = 0;
    if (argc != 6 || std::strcmp(argv[1], "checker") != 0 || !ParseSize(argv[3], width) ||
        !ParseSize(argv[4], height) || !ParseSize(argv[5], cell))
    {
        std::fputs(kUsage, stderr);
        return kBadUsage;
    }
    try
    {
        return Checker(argv[2], width, height, cell);
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "orvmedia: %s\n", e.message);
        return kFailed;
    }
}
