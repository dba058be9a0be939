// orvfuzz-seeds OUTDIR: writes a small seed corpus per fuzz target into
// OUTDIR/<target>/. Valid files come from the engine's own writers where it
// has them (TGA, XML plain and compressed, archives, envelopes); the formats
// it only reads are built byte by byte. Each valid file has near-valid
// neighbours (cut short, sizes that lie) so that the fuzzer starts at the
// checks that refuse them.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <unistd.h>

#include "CZLibBuffer.h"
#include "OrvBigFile.h"
#include "OrvException.h"
#include "OrvFileManager.h"
#include "OrvTGAImageFile.h"
#include "OrvXMLFile.h"

namespace fs = std::filesystem;

namespace
{
fs::path g_out;

[[noreturn]] void Fail(const std::string& what)
{
    std::fprintf(stderr, "orvfuzz-seeds: %s\n", what.c_str());
    std::exit(1);
}

void Put(const char* target, const std::string& name, const std::string& bytes)
{
    const fs::path path = g_out / target / name;
    std::ofstream out(path, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out)
        Fail("cannot write " + path.string());
}

std::string Read(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string Le16(unsigned long v)
{
    return {static_cast<char>(v & 0xFF), static_cast<char>((v >> 8) & 0xFF)};
}
std::string Le32(unsigned long v) { return Le16(v & 0xFFFF) + Le16((v >> 16) & 0xFFFF); }
std::string Be32(unsigned long v)
{
    const std::string le = Le32(v);
    return std::string(le.rbegin(), le.rend());
}
std::string Bytes(std::initializer_list<int> values)
{
    std::string s;
    for (int v : values)
        s += static_cast<char>(v);
    return s;
}

// The engine's writers put their files in the working folder: each target's
// files are written from inside its own seed folder.
struct InFolder
{
    explicit InFolder(const fs::path& dir) : previous(fs::current_path()) { fs::current_path(dir); }
    ~InFolder() { fs::current_path(previous); }
    fs::path previous;
};

// ---------------------------------------------------------------------------
// TGA, through OrvTGAImageFile::Save

class SeedImage : public OrvTGAImageFile
{
public:
    SeedImage(unsigned int width, unsigned int height, int bits)
    {
        SetImageTypeCode(2);
        SetImagePixelSize(static_cast<char>(bits));
        SetWidth(width);
        SetHeight(height);
        ResetImageData();
        for (unsigned long i = 0; i < GetImageDataSize(); ++i)
            m_data[i] = static_cast<unsigned char>(i * 37 + 11);
    }
};

std::string SavedTGA(unsigned int width, unsigned int height, int bits)
{
    OrvFileManager files;
    SeedImage image(width, height, bits);
    image.Create(&files, 1);
    image.Save("seed.tga", OrvFile::SAVE_DEFAULT);
    image.Close();
    const std::string bytes = Read("seed.tga");
    fs::remove("seed.tga");
    return bytes;
}

void TgaSeeds()
{
    InFolder here(g_out / "tga");
    const std::string rgba = SavedTGA(2, 2, 32);
    const std::string rgb = SavedTGA(3, 2, 24);
    Put("tga", "rgba-2x2.tga", rgba);
    Put("tga", "rgb-3x2.tga", rgb);
    Put("tga", "empty-0x0.tga", SavedTGA(0, 0, 32));
    Put("tga", "cut-pixels.tga", rgba.substr(0, rgba.size() - 3));
    Put("tga", "cut-header.tga", rgb.substr(0, 12));
    std::string withId = rgb;
    withId[0] = 4;
    withId.insert(18, "seed");
    Put("tga", "id-field.tga", withId);
    std::string idTooLong = rgb;
    idTooLong[0] = static_cast<char>(200);
    Put("tga", "id-past-end.tga", idTooLong);
    std::string rle = rgba;
    rle[2] = 10;
    Put("tga", "rle-type.tga", rle);
    std::string mapped = rgba;
    mapped[1] = 1;
    Put("tga", "color-map.tga", mapped);
    std::string sixteen = rgb;
    sixteen[16] = 16;
    Put("tga", "16-bit.tga", sixteen);
    std::string wide = rgba;
    wide[12] = static_cast<char>(0xFF);
    wide[13] = static_cast<char>(0xFF);
    Put("tga", "width-lies.tga", wide);
}

// ---------------------------------------------------------------------------
// XML, through OrvXMLFile::Save, plain and compressed

const char* const kSpriteSetsText =
    "<SpriteSets>"
    "<SpriteSet><Name>Tiles</Name>"
    "<Sprite><Name>t0</Name><XOrigin>0</XOrigin><YOrigin>0</YOrigin><XDimension>16</XDimension>"
    "<YDimension>16</YDimension></Sprite>"
    "<Sprite><Name>t1</Name><XOrigin>16</XOrigin><YOrigin>0</YOrigin><XDimension>16</XDimension>"
    "<YDimension>16</YDimension></Sprite>"
    "<Sprite><Name>t3</Name><XOrigin>16</XOrigin><YOrigin>16</YOrigin><XDimension>16</XDimension>"
    "<YDimension>16</YDimension></Sprite>"
    "</SpriteSet>"
    "<SpriteSet><Name>Tiles</Name>"
    "<Sprite><Name>whole</Name><XOrigin>0</XOrigin><YOrigin>0</YOrigin><XDimension>32</XDimension>"
    "<YDimension>32</YDimension></Sprite>"
    "</SpriteSet>"
    "<SpriteSet><Name>Empty</Name></SpriteSet>"
    "</SpriteSets>";

const char* const kAnimationsText =
    "<Animations>"
    "<Animation><Name>walk</Name><Speed>10</Speed><Loop>1</Loop>"
    "<Frame><Name>t0</Name><XOffset>1</XOffset><YOffset>2</YOffset></Frame>"
    "<Frame><Name>t1</Name><XOffset>0</XOffset><YOffset>0</YOffset><XCustom>5</XCustom><YCustom>6</YCustom></Frame>"
    "<Frame><Name>t0</Name><XOffset>1</XOffset><YOffset>2</YOffset></Frame>"
    "</Animation>"
    "<Animation><Name>once</Name><Speed>4</Speed><Loop>0</Loop>"
    "<Frame><Name>t3</Name><XOffset>-3</XOffset><YOffset>0.5</YOffset></Frame>"
    "</Animation>"
    "<Animation><Name>sheet</Name><Speed>1</Speed><Loop>0</Loop>"
    "<Frame><Name>Tiles</Name><XOffset>0</XOffset><YOffset>0</YOffset></Frame>"
    "</Animation>"
    "</Animations>";

const char* const kScoresText =
    "<HighScores>\n<Score><Name>Ada</Name><Points>42</Points></Score>\n"
    "<Score><Name>B\xC3\xA9la</Name><Points>7</Points></Score>\n</HighScores>\n";

std::string SavedXML(const char* text, OrvFile::SAVE_OPTION option)
{
    OrvFileManager files;
    OrvXMLFile document;
    document.Create(&files, 1);
    OrvUnicode decoded;
    decoded.SetFromUTF8(text, static_cast<unsigned int>(std::string(text).size()));
    document.SetText(decoded);
    document.BuildTree();
    document.Save("seed.xml", option);
    const std::string bytes = Read("seed.xml");
    fs::remove("seed.xml");
    return bytes;
}

// Recorded sessions: one of every event, and the ways a file goes wrong.
void SessionSeeds()
{
    const std::string head =
        "<OrvSession>\n<Version>1</Version>\n<Seed>7</Seed>\n<Devices>7</Devices>\n<Window>1024 768</Window>\n";
    const std::string turns = "<T>0.0166666675 F7 K1,273,97</T>\n<T>0.0166666675 M400,300,2,-1 B1,1,400,300</T>\n"
                              "<T>0.02 A0,1,-32768 J1,0,3 H0,0,8 K0,273,0</T>\n";
    Put("session", "every-event.xml", head + turns + "</OrvSession>\n");
    Put("session", "cut.xml", head + turns.substr(0, turns.size() - 20));
    Put("session", "version-2.xml", "<OrvSession><Version>2</Version><Seed>1</Seed><Devices>7</Devices></OrvSession>");
    Put("session", "unknown-event.xml", head + "<T>0.01 Q1,2</T></OrvSession>");
    Put("session", "no-joypad.xml",
        "<OrvSession><Version>1</Version><Seed>1</Seed><Devices>3</Devices><T>0.01 A0,0,5</T></OrvSession>");
    Put("session", "compressed.xml", SavedXML((head + turns + "</OrvSession>").c_str(), OrvFile::SAVE_COMPRESSED));
}

void XmlSeeds()
{
    InFolder here(g_out / "xml");
    const std::string sets = SavedXML(kSpriteSetsText, OrvFile::SAVE_DEFAULT);
    const std::string packed = SavedXML(kSpriteSetsText, OrvFile::SAVE_COMPRESSED);
    Put("xml", "spritesets.xml", sets);
    Put("xml", "spritesets-compressed.xml", packed);
    Put("xml", "animations.xml", SavedXML(kAnimationsText, OrvFile::SAVE_DEFAULT));
    Put("xml", "scores-compressed.xml", SavedXML(kScoresText, OrvFile::SAVE_COMPRESSED));
    Put("xml", "scores-as-typed.xml", kScoresText);
    Put("xml", "bom.xml", std::string("\xEF\xBB\xBF") + "<a><b>x</b><c></c></a>");
    Put("xml", "nested.xml", "<a><a><a><b>deep</b></a></a></a>");
    Put("xml", "unclosed.xml", "<a><b>text</b><c>");
    Put("xml", "stray-end.xml", "</a><a>x</a></b>");
    Put("xml", "no-tags.xml", "just text, no element");
    Put("xml", "cut-compressed.xml", packed.substr(0, packed.size() / 2));
    std::string lying = packed;
    lying[4] = static_cast<char>(lying[4] + 5);
    Put("xml", "length-lies-compressed.xml", lying);
    Put("xml", "envelope-only.xml", packed.substr(0, 9));
}

// ---------------------------------------------------------------------------
// Envelopes, through CZLibBuffer::Compress

std::string Compressed(const std::string& text)
{
    CZLibBuffer buffer;
    if (buffer.Compress(reinterpret_cast<const unsigned char*>(text.data()), text.size(), 1) != 2)
        Fail("CZLibBuffer::Compress refused a seed");
    return std::string(reinterpret_cast<const char*>(buffer.GetData()), buffer.GetSize());
}

void ZlibSeeds()
{
    const std::string text = kSpriteSetsText;
    const std::string packed = Compressed(text);
    Put("zlib", "spritesets.7z", packed);
    Put("zlib", "repeated.7z", Compressed(std::string(3000, 'a')));
    Put("zlib", "one-byte.7z", Compressed("x"));
    Put("zlib", "plain.txt", "not an envelope");
    Put("zlib", "cut.7z", packed.substr(0, packed.size() - 7));
    std::string shorter = packed;
    shorter[4] = 3;
    shorter[5] = 0;
    Put("zlib", "declares-less.7z", shorter);
    std::string longer = packed;
    longer[6] = 1;
    Put("zlib", "declares-more.7z", longer);
    Put("zlib", "huge-declared.7z", std::string("7z\0\0\xFF\xFF\xFF\x7F\x78\x01", 10));
    std::string damaged = packed;
    damaged[packed.size() / 2] = static_cast<char>(damaged[packed.size() / 2] ^ 0x55);
    Put("zlib", "damaged-stream.7z", damaged);
}

// ---------------------------------------------------------------------------
// Archives, through OrvBigFile::Save as orvpack writes them

std::string SavedArchive(const fs::path& sources, std::initializer_list<const char*> members)
{
    OrvFileManager files;
    files.AddMediaPath(sources.string().c_str());
    OrvBigFile* archive = new OrvBigFile();
    archive->Create(&files, ++files.LastFileID);
    files.AddOrvFile(archive);
    for (const char* member : members)
        archive->AddFile(member);
    archive->Save("seed.vbf", OrvFile::SAVE_DEFAULT);
    const std::string bytes = Read("seed.vbf");
    fs::remove("seed.vbf");
    return bytes;
}

void BigFileSeeds(const fs::path& work)
{
    fs::create_directories(work / "b");
    fs::create_directories(work / "sprites");
    std::ofstream(work / "a.txt", std::ios::binary) << "hello";
    std::ofstream(work / "b" / "d.xml", std::ios::binary) << "<x>member</x>";
    std::ofstream(work / "empty.txt", std::ios::binary).flush();
    {
        InFolder inWork(work);
        const std::string tga = SavedTGA(2, 2, 32);
        std::ofstream(work / "sprites" / "hero.tga", std::ios::binary) << tga;
    }

    InFolder here(g_out / "bigfile");
    const std::string two = SavedArchive(work, {"a.txt", "b/d.xml"});
    Put("bigfile", "two-members.vbf", two);
    Put("bigfile", "image-member.vbf", SavedArchive(work, {"sprites/hero.tga", "a.txt"}));
    Put("bigfile", "empty-member.vbf", SavedArchive(work, {"empty.txt", "a.txt"}));
    Put("bigfile", "no-members.vbf", SavedArchive(work, {}));
    Put("bigfile", "same-name-twice.vbf", SavedArchive(work, {"a.txt", "a.txt"}));
    Put("bigfile", "cut-in-table.vbf", two.substr(0, 10));
    Put("bigfile", "cut-in-data.vbf", two.substr(0, two.size() - 4));
    std::string count = two;
    count.replace(0, 4, Le32(3));
    Put("bigfile", "count-lies.vbf", count);
    std::string start = two;
    start.replace(4, 4, Le32(0x7FFFFFF0));
    Put("bigfile", "start-past-end.vbf", start);
    std::string path = two;
    path.replace(16, 4, Le32(0xFFFFFFF0));
    Put("bigfile", "path-length-lies.vbf", path);
    std::string dataSize = two;
    dataSize.replace(12, 4, Le32(6));
    Put("bigfile", "data-size-lies.vbf", dataSize);
}

// ---------------------------------------------------------------------------
// BMP, built byte by byte: file header, 40-byte info header, padded rows

std::string Bmp(unsigned long width, unsigned long height, const std::string& rows, unsigned long infoSize = 40)
{
    std::string info = Le32(infoSize) + Le32(width) + Le32(height) + Le16(1) + Le16(24);
    info.resize(infoSize, '\0');
    const unsigned long offset = 14 + infoSize;
    return "BM" + Le32(offset + rows.size()) + Le32(0) + Le32(offset) + info + rows;
}

void BmpSeeds()
{
    // 2 x 2: six bytes of pixels and two of padding a row.
    const std::string rows2x2 = Bytes({0, 0, 255, 0, 255, 0, 0, 0, 255, 0, 0, 255, 255, 255, 0, 0});
    const std::string image = Bmp(2, 2, rows2x2);
    Put("bmp", "2x2.bmp", image);
    Put("bmp", "4x1.bmp", Bmp(4, 1, std::string(12, '\x7f')));
    Put("bmp", "1x3.bmp", Bmp(1, 3, std::string(12, '\x20')));
    Put("bmp", "0x0.bmp", Bmp(0, 0, ""));
    Put("bmp", "core-header.bmp", Bmp(2, 2, rows2x2, 12));
    Put("bmp", "cut-rows.bmp", image.substr(0, image.size() - 5));
    Put("bmp", "cut-header.bmp", image.substr(0, 20));
    Put("bmp", "height-lies.bmp", Bmp(2, 200, rows2x2));
    Put("bmp", "width-lies.bmp", Bmp(0x40000000, 2, rows2x2));
    std::string offset = image;
    offset.replace(10, 4, Le32(0xFFFFFF00));
    Put("bmp", "offset-past-end.bmp", offset);
}

// ---------------------------------------------------------------------------
// PNG, built byte by byte: signature, IHDR, optional PLTE, IEND (CRCs unchecked)

std::string PngChunk(const std::string& type, const std::string& data)
{
    return Be32(data.size()) + type + data + std::string(4, '\0');
}

std::string Png(unsigned long width, unsigned long height, int depth, int colorType, const std::string& chunks)
{
    const std::string ihdr = Be32(width) + Be32(height) + Bytes({depth, colorType, 0, 0, 0});
    return std::string("\x89PNG\r\n\x1a\n", 8) + PngChunk("IHDR", ihdr) + chunks + PngChunk("IEND", "");
}

void PngSeeds()
{
    const std::string palette = PngChunk("PLTE", Bytes({255, 0, 0, 0, 255, 0, 0, 0, 255}));
    const std::string idat = PngChunk("IDAT", Bytes({0x78, 0x01, 0x63, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01}));
    Put("png", "gray-8.png", Png(4, 4, 8, 0, idat));
    Put("png", "gray-1.png", Png(9, 1, 1, 0, idat));
    Put("png", "rgb-8.png", Png(4, 4, 8, 2, idat));
    Put("png", "gray-alpha-16.png", Png(2, 2, 16, 4, idat));
    Put("png", "rgba-8.png", Png(1, 1, 8, 6, idat));
    const std::string indexed = Png(4, 4, 8, 3, palette + idat);
    Put("png", "palette-8.png", indexed);
    Put("png", "palette-2-text-first.png", Png(4, 4, 2, 3, PngChunk("tEXt", std::string("Title\0seed", 10)) + palette + idat));
    Put("png", "palette-twice.png", Png(4, 4, 4, 3, palette + palette + idat));
    Put("png", "palette-no-plte.png", Png(4, 4, 8, 3, idat));
    Put("png", "palette-cut.png", indexed.substr(0, 45));
    Put("png", "palette-no-iend.png", indexed.substr(0, indexed.size() - 12));
    std::string longPalette = indexed;
    longPalette.replace(33, 4, Be32(0x7FFFFFFF));
    Put("png", "palette-length-lies.png", longPalette);
    Put("png", "bad-depth.png", Png(4, 4, 3, 2, idat));
    Put("png", "bad-color-type.png", Png(4, 4, 8, 5, idat));
    Put("png", "signature-only.png", std::string("\x89PNG\r\n\x1a\n", 8));
}

// ---------------------------------------------------------------------------
// WAV, built byte by byte: the canonical 44-byte RIFF/WAVE header

std::string Wav(unsigned int channels, unsigned int bits, unsigned long rate, const std::string& samples,
                long declared = -1, unsigned int format = 1)
{
    const unsigned int align = channels * bits / 8;
    const unsigned long size = declared < 0 ? samples.size() : static_cast<unsigned long>(declared);
    return "RIFF" + Le32(36 + samples.size()) + "WAVE" + "fmt " + Le32(16) + Le16(format) + Le16(channels) +
           Le32(rate) + Le32(rate * align) + Le16(align) + Le16(bits) + "data" + Le32(size) + samples;
}

void WavSeeds()
{
    const std::string stereo16 = Wav(2, 16, 44100, Bytes({0, 0, 0, 0, 0xFF, 0x7F, 0x01, 0x80}));
    Put("wav", "stereo-16.wav", stereo16);
    Put("wav", "mono-8.wav", Wav(1, 8, 11025, Bytes({128, 200, 50, 128})));
    Put("wav", "mono-16-empty.wav", Wav(1, 16, 22050, ""));
    Put("wav", "size-lies.wav", Wav(2, 16, 44100, Bytes({1, 2, 3, 4}), 4096));
    Put("wav", "cut-header.wav", stereo16.substr(0, 30));
    Put("wav", "float-format.wav", Wav(1, 32, 48000, std::string(8, '\0'), -1, 3));
    std::string notWave = stereo16;
    notWave.replace(8, 4, "AVI ");
    Put("wav", "not-wave.wav", notWave);
}

// ---------------------------------------------------------------------------
// Text: UTF-8 and, read two bytes a unit, UTF-16

void UnicodeSeeds()
{
    Put("unicode", "ascii.txt", "SpriteSets Tiles t0 42 -3.5e2");
    Put("unicode", "utf8-mixed.txt", "B\xC3\xA9la \xE2\x82\xAC 5 \xF0\x9F\x98\x80!");
    Put("unicode", "bom.txt", "\xEF\xBB\xBFsigned");
    Put("unicode", "utf32-signature.txt", std::string("\xFF\xFE\x00\x00" "A", 5));
    Put("unicode", "invalid.txt", "A\x90" "B\xC3" "C\xE2\x82");
    Put("unicode", "cut-sequence.txt", "AB\xE2\x82");
    Put("unicode", "embedded-zero.txt", std::string("A\0B", 3));
    Put("unicode", "utf16.txt", std::string("A\0\xE9\0\xAC\x20\x00\xD8\xFF\xFE", 10));
}

// ---------------------------------------------------------------------------
// Sprite documents, in the format the sprite manager reads

std::string SpriteElement(const char* name, const char* x, const char* y, const char* w, const char* h)
{
    return std::string("<Sprite><Name>") + name + "</Name><XOrigin>" + x + "</XOrigin><YOrigin>" + y +
           "</YOrigin><XDimension>" + w + "</XDimension><YDimension>" + h + "</YDimension></Sprite>";
}

void SpriteSetSeeds()
{
    Put("spriteset", "tiles.xml", kSpriteSetsText);
    Put("spriteset", "one-sprite.xml",
        "<SpriteSets><SpriteSet><Name>Tiles</Name>" + SpriteElement("a", "0", "0", "32", "32") +
            "</SpriteSet></SpriteSets>");
    Put("spriteset", "odd-numbers.xml",
        "<SpriteSets><SpriteSet><Name>Tiles</Name>" + SpriteElement("n", "-4", "1e9", "nan", "0x10") +
            SpriteElement("m", "", " 7", "16.5", "-0") + "</SpriteSet></SpriteSets>");
    Put("spriteset", "empty-set.xml", "<SpriteSets><SpriteSet><Name>Tiles</Name></SpriteSet></SpriteSets>");
    Put("spriteset", "missing-image.xml",
        "<SpriteSets><SpriteSet><Name>Nowhere</Name>" + SpriteElement("x", "0", "0", "1", "1") +
            "</SpriteSet></SpriteSets>");
    Put("spriteset", "six-children.xml",
        "<SpriteSets><SpriteSet><Name>Tiles</Name><Sprite><Name>a</Name><XOrigin>0</XOrigin><YOrigin>0</YOrigin>"
        "<XDimension>1</XDimension><YDimension>1</YDimension><Z>1</Z></Sprite></SpriteSet></SpriteSets>");
    Put("spriteset", "swapped-origin.xml",
        "<SpriteSets><SpriteSet><Name>Tiles</Name><Sprite><Name>a</Name><YOrigin>0</YOrigin><XOrigin>0</XOrigin>"
        "<XDimension>1</XDimension><YDimension>1</YDimension></Sprite></SpriteSet></SpriteSets>");
    Put("spriteset", "childless-set.xml", "<SpriteSets><SpriteSet></SpriteSet></SpriteSets>");
    Put("spriteset", "wrong-root.xml", "<Sets><SpriteSet><Name>Tiles</Name></SpriteSet></Sets>");
    Put("spriteset", "compressed.xml",
        [] {
            InFolder here(g_out / "spriteset");
            return SavedXML(kSpriteSetsText, OrvFile::SAVE_COMPRESSED);
        }());
}

void AnimationSeeds()
{
    Put("animation", "walk.xml", kAnimationsText);
    Put("animation", "custom-positions.xml",
        "<Animations><Animation><Name>c</Name><Speed>30</Speed><Loop>2</Loop>"
        "<Frame><Name>t2</Name><XOffset>1</XOffset><YOffset>2</YOffset><XCustom>5</XCustom><YCustom>6</YCustom>"
        "</Frame></Animation></Animations>");
    Put("animation", "zero-speed.xml",
        "<Animations><Animation><Name>z</Name><Speed>0</Speed><Loop>0</Loop>"
        "<Frame><Name>t0</Name><XOffset>0</XOffset><YOffset>0</YOffset></Frame></Animation></Animations>");
    Put("animation", "missing-sprite.xml",
        "<Animations><Animation><Name>m</Name><Speed>1</Speed><Loop>1</Loop>"
        "<Frame><Name>nowhere</Name><XOffset>0</XOffset><YOffset>0</YOffset></Frame></Animation></Animations>");
    Put("animation", "half-custom.xml",
        "<Animations><Animation><Name>h</Name><Speed>1</Speed><Loop>0</Loop>"
        "<Frame><Name>t1</Name><XOffset>0</XOffset><YOffset>0</YOffset><XCustom>1</XCustom></Frame>"
        "</Animation></Animations>");
    Put("animation", "no-frames.xml", "<Animations><Animation><Name>e</Name><Speed>2</Speed><Loop>1</Loop>"
                                      "</Animation></Animations>");
    Put("animation", "sprite-as-animation.xml", "<Animations><Animation><Name>t3</Name></Animation></Animations>");
    Put("animation", "wrong-node.xml", "<Animations><Anim><Name>walk</Name></Anim></Animations>");
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "Usage: orvfuzz-seeds OUTDIR\n");
        return 2;
    }
    const char* const targets[] = {"bigfile", "xml", "zlib", "tga", "bmp", "png", "wav", "unicode", "session",
                                   "spriteset", "animation"};
    try
    {
        fs::create_directories(argv[1]);
        g_out = fs::canonical(argv[1]);
        for (const char* target : targets)
            fs::create_directories(g_out / target);
        const fs::path work = g_out / ".sources";
        fs::remove_all(work);

        TgaSeeds();
        XmlSeeds();
        SessionSeeds();
        ZlibSeeds();
        BigFileSeeds(work);
        BmpSeeds();
        PngSeeds();
        WavSeeds();
        UnicodeSeeds();
        SpriteSetSeeds();
        AnimationSeeds();
        fs::remove_all(work);
    }
    catch (const OrvException& e)
    {
        Fail(std::string(e.name) + ": " + e.message);
    }
    catch (const fs::filesystem_error& e)
    {
        Fail(e.what());
    }
    return 0;
}
