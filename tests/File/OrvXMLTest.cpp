#include <gtest/gtest.h>

#include <string>

#include "CZLibBuffer.h"
#include "OrvFileManager.h"
#include "OrvTestBytes.h"
#include "OrvXMLFile.h"

namespace
{
std::string Narrow(const OrvUnicode& text)
{
    std::string out;
    for (unsigned int i = 0; i < text.Length(); ++i)
        out += static_cast<char>(text.GetData()[i]);
    return out;
}

// name{content}[children] of an element and its subtree; "null" for none.
std::string Shape(const OrvXMLElement* element)
{
    if (element == nullptr)
        return "null";
    std::string children;
    for (unsigned int i = 0; i < element->GetChildCount(); ++i)
        children += (i > 0 ? "," : "") + Shape(element->GetChild(i));
    return Narrow(element->GetName()) + "{" + Narrow(element->GetContent()) + "}" +
           (children.empty() ? "" : "[" + children + "]");
}

std::string Printed(OrvXMLElement* element)
{
    CStdBuffer buffer;
    OrvXMLFile().PrintElement(element, buffer);
    return AsString(buffer.GetData(), buffer.GetSize());
}

// A registered file holding `text` parsed.
OrvXMLFile* Parsed(OrvFileManager& manager, const char* text)
{
    OrvXMLFile* file = NewFile<OrvXMLFile>(manager);
    file->SetText(text);
    file->BuildTree();
    return file;
}

std::string TextBuilderFailure(const char* text)
{
    unsigned int position = 0;
    return Thrown([&] { delete OrvXMLFile::BuildElement(OrvUnicode(text), position); }).message;
}
}

using OrvXMLTest = OrvScratchFiles;

TEST_F(OrvXMLTest, TokensCutAtAngleBrackets)
{
    OrvTObjectArray<OrvUnicode> tokens;
    OrvXMLFile::BuildXMLElementArray("<a>x</a>", tokens);
    ASSERT_EQ(3u, tokens.GetCount());
    EXPECT_TRUE(tokens[0] == "<a>" && tokens[1] == "x" && tokens[2] == "</a>");

    // No special case for quotes; whitespace forms tokens; the tail is dropped.
    OrvTObjectArray<OrvUnicode> more;
    OrvXMLFile::BuildXMLElementArray("<a v=\"1>2\">\n <<b>tail", more);
    ASSERT_EQ(5u, more.GetCount());
    EXPECT_TRUE(more[0] == "<a v=\"1>" && more[1] == "2\">" && more[2] == "\n " && more[3] == "<" &&
                more[4] == "<b>");
}

TEST_F(OrvXMLTest, TreesFromTokensTolerateAnything)
{
    const auto shape = [&](const char* text) { return Shape(Parsed(manager, text)->GetXMLRoot()); };
    EXPECT_EQ("a{x}", shape("<a>x</a>trailing"));
    // The last text token directly inside wins, whitespace included.
    EXPECT_EQ("a{\n}[b{y}]", shape("<a>\n <b>y</b>\n</a>"));
    EXPECT_EQ("?xml version=\"1.0\"?{\n}[r{}[img src=\"p.png\"{t}]]",
              shape("<?xml version=\"1.0\"?>\n<r><img src=\"p.png\">t</img></r>"));
    EXPECT_EQ("{}[r{t}]", shape("\n<r>t</r>"));
    // A self-closing tag takes the following siblings; unclosed elements end with the text.
    EXPECT_EQ("a{}[br/{}[b{x}],c{}]", shape("<a><br/><b>x</b></a><c>"));
    EXPECT_EQ("null", shape("only text"));
    EXPECT_EQ("/x{}[{}]", shape("</x><>"));

    // The builder leaves the index after the element; closing names are not compared.
    OrvTObjectArray<OrvUnicode> tokens;
    OrvXMLFile::BuildXMLElementArray("<a><b></z>x</a><c>", tokens);
    unsigned int index = 0;
    OrvXMLElement* built = OrvXMLFile::BuildElement(tokens, index);
    EXPECT_EQ(5u, index);
    EXPECT_EQ("a{x}[b{}]", Shape(built));
    delete built;
    index = 6;
    EXPECT_EQ(nullptr, OrvXMLFile::BuildElement(tokens, index));
}

TEST_F(OrvXMLTest, PrintsByteForByte)
{
    OrvXMLFile* file = Parsed(manager, "<SpriteSets><SpriteSet><Name>hero</Name></SpriteSet></SpriteSets>");
    EXPECT_EQ("<SpriteSets>\n<SpriteSet>\n<Name>hero</Name>\n</SpriteSet>\n</SpriteSets>\n", Printed(file->GetXMLRoot()));
    EXPECT_EQ("<a>\n<b>y</b>\n</a>\n", Printed(Parsed(manager, "<a>\n <b>y</b>\n</a>")->GetXMLRoot()));
    EXPECT_EQ("<r>\n  <c>\n</c>\n</r>\n", Printed(Parsed(manager, "<r><c></c>\n  </r>")->GetXMLRoot()));

    // Attributes are not printed, wide characters narrow to '?', and bytes are appended.
    OrvXMLElement element("n", "");
    OrvUnicode wide;
    wide.SetFromUTF8("caf\xC3\xA9", 5);
    element.SetContent(wide);
    element.GetAttributes().Add(new OrvXMLAttribute("k", "v"), false);
    CStdBuffer buffer;
    buffer.SetSize(1);
    *buffer[0] = '#';
    file->PrintElement(&element, buffer);
    EXPECT_EQ("#<n>caf?</n>\n", AsString(buffer.GetData(), buffer.GetSize()));
    EXPECT_EQ("<>\n</>\n", Printed(Parsed(manager, "<>")->GetXMLRoot()));
    EXPECT_EQ("", Printed(nullptr));
}

TEST_F(OrvXMLTest, CompressedSaveLoadsBackAndStaysCompressed)
{
    const std::string plain = "<Animations>\n<Anim>walk</Anim>\n</Animations>\n";
    OrvXMLFile* source = Parsed(manager, "<Animations><Anim>walk</Anim></Animations>");
    source->Save("plain.xml", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ(plain, OrvScratchDir::Read("plain.xml"));
    source->Save("packed.xml", OrvFile::SAVE_COMPRESSED);

    const std::string packed = OrvScratchDir::Read("packed.xml");
    ASSERT_GT(packed.size(), 10u);
    EXPECT_EQ(std::string("7z\0\0", 4), packed.substr(0, 4));
    EXPECT_EQ(std::string(1, static_cast<char>(plain.size())) + std::string(3, '\0'), packed.substr(4, 4));
    EXPECT_EQ("\x78\x01", packed.substr(8, 2)); // zlib header of level 1

    OrvXMLFile* loaded = manager.GetOrLoad<OrvXMLFile>("packed.xml");
    EXPECT_TRUE(loaded->GetLoadedCompressed());
    EXPECT_EQ(plain, Narrow(loaded->GetText()));
    EXPECT_EQ("Animations{\n}[Anim{walk}]", Shape(loaded->GetXMLRoot()));
    loaded->Save("again.xml", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ(packed, OrvScratchDir::Read("again.xml"));

    EXPECT_FALSE(manager.GetOrLoad<OrvXMLFile>("plain.xml")->GetLoadedCompressed());

    // A broken envelope keeps the previous text and rebuilds the tree from it.
    OrvScratchDir::Write("broken.xml", std::string("7z\0\0\x40\0\0\0garbage!", 16));
    loaded->Load("broken.xml", "");
    EXPECT_EQ(0, loaded->GetSize());
    EXPECT_FALSE(loaded->GetLoadedCompressed());
    EXPECT_EQ(plain, Narrow(loaded->GetText()));
    EXPECT_EQ("Animations{\n}[Anim{walk}]", Shape(loaded->GetXMLRoot()));
}

TEST_F(OrvXMLTest, LoadsFromMediaPathsThroughTheManager)
{
    OrvScratchDir::Write("media/Sets.xml", "\xEF\xBB\xBF<Sets>\n<Set>hero</Set>\n</Sets>\n");
    OrvScratchDir::Write("empty.xml", "");
    OrvScratchDir::Write("words.xml", "no tags at all");
    manager.AddMediaPath("media");

    EXPECT_EQ("Sets{\n}[Set{hero}]", Shape(manager.GetOrLoad<OrvXMLFile>("Sets.xml")->GetXMLRoot()));
    EXPECT_EQ("{}", Shape(manager.GetOrLoad<OrvXMLFile>("empty.xml")->GetXMLRoot()));
    OrvXMLFile* words = manager.GetOrLoad<OrvXMLFile>("words.xml");
    EXPECT_EQ(nullptr, words->GetXMLRoot());
    words->Save("out.xml", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ("", OrvScratchDir::Read("out.xml"));

    EXPECT_EQ("The given file name doesn't have the right file extension",
              Thrown([&] { manager.GetOrLoad<OrvXMLFile>("Sets.XML"); }).message);
}

TEST_F(OrvXMLTest, TextBuilderMatchesEndTags)
{
    const OrvUnicode text("<a>x<b>y</b>z</a>!");
    unsigned int position = 0;
    OrvXMLElement* a = OrvXMLFile::BuildElement(text, position);
    EXPECT_EQ(17u, position);
    EXPECT_EQ("a{z}[b{y}]", Shape(a));
    delete a;

    EXPECT_EQ("Couldn't find a '>' while importing xml file", TextBuilderFailure("<a"));
    EXPECT_EQ("Couldn't find an end tag while importing xml file", TextBuilderFailure("<a>x</b>"));
    EXPECT_EQ("Couldn't find an end tag while importing xml file", TextBuilderFailure("<a><b></a>"));
    EXPECT_EQ("Couldn't find a '<' while importing xml file", TextBuilderFailure("<a><a></a>"));

    // The builder holds text to the loader's depth: as deep as allowed builds,
    // one deeper is refused before the search for end tags runs away.
    std::string open, close;
    for (unsigned int i = 0; i < OrvXMLFile::kMaxDepth; ++i)
    {
        open += "<d>";
        close += "</d>";
    }
    position = 0;
    OrvXMLElement* deep = OrvXMLFile::BuildElement(OrvUnicode((open + close).c_str()), position);
    EXPECT_EQ(OrvXMLFile::kMaxDepth * 7u, position);
    delete deep;
    EXPECT_EQ("The xml file nests its elements too deeply",
              TextBuilderFailure((open + "<d></d>" + close).c_str()));
}

TEST_F(OrvXMLTest, ElementsOwnTheirSubtreesAndCopyShallow)
{
    OrvXMLFile* file = Parsed(manager, "<r><x>1</x><y><x>2</x></y><x>3</x></r>");
    OrvXMLElement* root = file->GetXMLRoot();
    root->GetChildren().Insert(0, nullptr);
    EXPECT_TRUE(root->SearchChildNamed("x")->GetContent() == "1");
    EXPECT_EQ(nullptr, root->SearchChildNamed("z"));

    root->GetAttributes().Add(new OrvXMLAttribute("k", "v"), false);
    OrvXMLElement copy(*root);
    EXPECT_EQ("r{}", Shape(&copy));
    ASSERT_EQ(1u, copy.GetAttributes().GetSize());
    EXPECT_NE(root->GetAttributes()[0], copy.GetAttributes()[0]);
    EXPECT_TRUE(copy.GetAttributes()[0]->GetValue() == "v");

    OrvXMLFile duplicate(*file);
    EXPECT_NE(root, duplicate.GetXMLRoot());
    EXPECT_EQ("r{}", Shape(duplicate.GetXMLRoot()));
    EXPECT_EQ(0u, duplicate.GetText().Length());

    root->DeleteAllChildren();
    EXPECT_EQ(0u, root->GetChildCount());
}

TEST_F(OrvXMLTest, HostileDocumentsAreBoundedAndDamagedOnesNeverCrash)
{
    // As deep as a document may nest, printed without recursion; one deeper
    // is refused, naming the file.
    std::string deep;
    for (unsigned int i = 0; i < OrvXMLFile::kMaxDepth; ++i)
        deep += "<d>";
    OrvXMLFile* file = Parsed(manager, deep.c_str());
    EXPECT_EQ(1u, file->GetXMLRoot()->GetChildCount());
    EXPECT_EQ(OrvXMLFile::kMaxDepth * 9u, Printed(file->GetXMLRoot()).size());
    OrvScratchDir::Write("deep.xml", deep + "<d>");
    EXPECT_EQ("The xml file nests its elements too deeply : deep.xml",
              Thrown([&] { NewFile<OrvXMLFile>(manager)->Load("deep.xml", ""); }).message);

    // 200,000 siblings in a 1.5 KB envelope: loaded in one pass. More
    // elements than a document may hold, or an envelope that would expand
    // past what a document may hold, are refused.
    std::string siblings = "<r>";
    for (int i = 0; i < 200000; ++i)
        siblings += "<a></a>";
    siblings += "</r>";
    CZLibBuffer packed;
    ASSERT_EQ(2u, packed.Compress(reinterpret_cast<const unsigned char*>(siblings.data()), siblings.size(), 9));
    OrvScratchDir::Write("siblings.xml", AsString(packed.GetData(), packed.GetSize()));
    OrvXMLFile* wide = NewFile<OrvXMLFile>(manager);
    wide->Load("siblings.xml", "");
    EXPECT_EQ(200000u, wide->GetXMLRoot()->GetChildCount());
    std::string crowd = "<r>";
    for (unsigned int i = 0; i < OrvXMLFile::kMaxElements; ++i)
        crowd += "<a></a>";
    OrvScratchDir::Write("crowd.xml", crowd);
    EXPECT_EQ("The xml file holds too many elements : crowd.xml",
              Thrown([&] { NewFile<OrvXMLFile>(manager)->Load("crowd.xml", ""); }).message);
    std::string huge(17u << 20, ' ');
    ASSERT_EQ(2u, packed.Compress(reinterpret_cast<const unsigned char*>(huge.data()), huge.size(), 9));
    OrvScratchDir::Write("huge.xml", AsString(packed.GetData(), packed.GetSize()));
    EXPECT_EQ("The xml file expands beyond what a document may hold : huge.xml",
              Thrown([&] { NewFile<OrvXMLFile>(manager)->Load("huge.xml", ""); }).message);

    delete file->GetXMLRoot();
    file->SetXMLRoot(nullptr);
    file->SetText("<SpriteSets><SpriteSet><Name>hero</Name><Frames>4</Frames></SpriteSet></SpriteSets>");
    file->BuildTree();
    file->Save("whole.xml", OrvFile::SAVE_COMPRESSED);
    std::string bytes = OrvScratchDir::Read("whole.xml");
    unsigned int seed = 7;
    for (int round = 0; round < 40; ++round)
    {
        std::string damaged = bytes.substr(0, bytes.size() * static_cast<size_t>(round) / 40);
        for (char& c : damaged)
        {
            seed = seed * 1103515245u + 12345u;
            if ((seed >> 16) % 13 == 0)
                c = static_cast<char>(seed >> 24);
        }
        OrvScratchDir::Write("damaged.xml", damaged);
        OrvScratchDir::Write("plain.xml", damaged.substr(damaged.size() / 3));
        EXPECT_NO_THROW(file->Load("damaged.xml", ""));
        EXPECT_NO_THROW(file->Load("plain.xml", ""));
    }
    OrvScratchDir::Write("damaged.xml", std::string("7z\0\0\xFF\xFF\xFF\x7F\x78\x01", 10));
    EXPECT_NO_THROW(file->Load("damaged.xml", ""));
}
