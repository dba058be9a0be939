#ifndef ORV_TEST_BYTES_H
#define ORV_TEST_BYTES_H

// Byte builders for the formats the engine reads, and capture of what a call throws.

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "OrvException.h"
#include "OrvFileManager.h"
#include "OrvScratchDir.h"

inline std::string Le16(unsigned long v) { return {static_cast<char>(v & 0xFF), static_cast<char>((v >> 8) & 0xFF)}; }
inline std::string Le32(unsigned long v) { return Le16(v & 0xFFFF) + Le16((v >> 16) & 0xFFFF); }
inline std::string Be32(unsigned long v)
{
    const std::string le = Le32(v);
    return std::string(le.rbegin(), le.rend());
}

inline std::string Bytes(std::initializer_list<int> values)
{
    std::string s;
    for (int v : values)
        s += static_cast<char>(v);
    return s;
}

inline std::string AsString(const void* data, unsigned long size)
{
    return size == 0 ? std::string() : std::string(static_cast<const char*>(data), size);
}

// What an OrvException thrown by the call carries; the message reads "nothing thrown" when none is.
struct Thrown
{
    template <class Call>
    explicit Thrown(Call&& call) : message("nothing thrown")
    {
        try
        {
            call();
        }
        catch (const OrvException& e)
        {
            name = e.name;
            message = e.message;
            file = e.file;
        }
    }
    std::string Full() const { return name + " | " + message + " | " + file; }

    std::string name, message, file;
};

// A file created and registered as the engine does it.
template <class T>
T* NewFile(OrvFileManager& manager)
{
    T* file = new T();
    file->Create(&manager, ++manager.LastFileID);
    manager.AddOrvFile(file);
    return file;
}

// A scratch working directory and a file manager, for tests that read and write files.
struct OrvScratchFiles : ::testing::Test
{
    OrvScratchDir dir;
    OrvFileManager manager;
};

// Writes the bytes under name (in the working directory) and loads them as a T through a fresh manager.
template <class T>
Thrown Refusal(const std::string& name, const std::string& bytes)
{
    OrvScratchDir::Write(name, bytes);
    OrvFileManager manager;
    return Thrown([&] { manager.GetOrLoad<T>(OrvUnicode(name.c_str())); });
}

// Every proper prefix of the file is refused with a file exception naming it.
template <class T>
void ExpectEveryCutRefused(const std::string& name, const std::string& bytes)
{
    for (size_t cut = 0; cut < bytes.size(); ++cut)
    {
        const Thrown refusal = Refusal<T>(name, bytes.substr(0, cut));
        EXPECT_EQ("Orv File Exception", refusal.name) << "cut at " << cut;
        EXPECT_NE(std::string::npos, refusal.message.find(name)) << "cut at " << cut << ": " << refusal.message;
    }
}

// TGA: an 18-byte header (origin 7, 9), the ID field, then the pixels.
inline std::string Tga(int colorMap, int type, unsigned int width, unsigned int height, int bits,
                       const std::string& id, const std::string& pixels, int descriptor = 0)
{
    return Bytes({static_cast<int>(id.size()), colorMap, type, 0, 0, 0, 0, 0}) + Le16(7) + Le16(9) + Le16(width) +
           Le16(height) + Bytes({bits, descriptor}) + id + pixels;
}

// BMP: a file header, an info header of infoSize bytes (24 bits a pixel), a gap, then the rows.
inline std::string Bmp(unsigned long width, unsigned long height, const std::string& rows,
                       unsigned long infoSize = 40, const std::string& gap = "")
{
    std::string info = Le32(infoSize) + Le32(width) + Le32(height) + Le16(1) + Le16(24);
    info.resize(infoSize, '\0');
    const unsigned long offset = 14 + infoSize + gap.size();
    return "BM" + Le32(offset + rows.size()) + Le32(0) + Le32(offset) + info + gap + rows;
}

// PNG chunks with zero CRCs: the reader does not check them.
inline std::string PngChunk(const std::string& type, const std::string& data)
{
    return Be32(data.size()) + type + data + std::string(4, '\0');
}

const std::string kPngSignature = "\x89PNG\r\n\x1a\n";

inline std::string Png(unsigned long width, unsigned long height, int depth, int colorType,
                       const std::string& chunks, int interlace = 0)
{
    const std::string ihdr = Be32(width) + Be32(height) + Bytes({depth, colorType, 0, 0, interlace});
    return kPngSignature + PngChunk("IHDR", ihdr) + chunks + PngChunk("IEND", "");
}

// A canonical 44-byte-header WAV file; declaredSize < 0 declares the real sample size.
struct Wav
{
    std::string riff = "RIFF", wave = "WAVE", samples;
    unsigned int format = 1, channels = 2, bits = 16;
    unsigned long rate = 44100;
    long declaredSize = -1;

    std::string Bytes() const
    {
        const unsigned int align = channels * bits / 8;
        const unsigned long size = declaredSize < 0 ? samples.size() : static_cast<unsigned long>(declaredSize);
        return riff + Le32(36 + samples.size()) + wave + "fmt " + Le32(16) + Le16(format) + Le16(channels) +
               Le32(rate) + Le32(rate * align) + Le16(align) + Le16(bits) + "data" + Le32(size) + samples;
    }
};

// The 55-byte .vbf of two members, a.txt ("hello") and b/d.xml (kVbfMember), written out by hand.
const std::string kVbfMember("<x>\0\xff</x>!", 10);

inline std::string VbfExample()
{
    return Le32(2) + Le32(12) + Le32(30) + Le32(5) + Le32(5) + "a.txt" + "hello" + Le32(10) + Le32(7) + "b/d.xml" +
           kVbfMember;
}

#endif
