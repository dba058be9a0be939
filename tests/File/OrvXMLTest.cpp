#include <gtest/gtest.h>

#include <string>

#include "CZLibBuffer.h"
#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvScratchDir.h"
#include "OrvTreeNodeException.h"
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

std::string Printed(OrvXMLElement* element)
{
    OrvXMLFile file;
    CStdBuffer buffer;
    file.PrintElement(element, buffer);
    return std::string(reinterpret_cast<const char*>(buffer.GetData()), buffer.GetSize());
}

// A file created and registered as the engine does, holding `text` parsed.
OrvXMLFile* Parsed(OrvFileManager& manager, const char* text)
{
    OrvXMLFile* file = new OrvXMLFile();
    file->Create(&manager, ++manager.LastFileID);
    manager.AddOrvFile(file);
    file->SetText(text);
    file->BuildTree();
    return file;
}

std::string TextBuilderFailure(const char* text)
{
    unsigned int position = 0;
    try
    {
        delete OrvXMLFile::BuildElement(OrvUnicode(text), position);
    }
    catch (const OrvFileException& e)
    {
        return e.message;
    }
    return "no exception";
}
}

TEST(OrvXML, TokensCutAtAngleBrackets)
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

    OrvTObjectArray<OrvUnicode> none;
    OrvXMLFile::BuildXMLElementArray("no tags here", none);
    EXPECT_EQ(0u, none.GetCount());
}

TEST(OrvXML, TreesFromTokensTolerateAnything)
{
    OrvFileManager manager;
    OrvXMLElement* root = Parsed(manager, "<a>x</a>trailing")->GetXMLRoot();
    ASSERT_NE(nullptr, root);
    EXPECT_TRUE(root->GetName() == "a" && root->GetContent() == "x");
    EXPECT_EQ(0u, root->GetChildCount());

    // The last text token directly inside wins, whitespace included.
    root = Parsed(manager, "<a>\n <b>y</b>\n</a>")->GetXMLRoot();
    EXPECT_TRUE(root->GetContent() == "\n");
    ASSERT_EQ(1u, root->GetChildCount());
    EXPECT_TRUE(root->GetChild(0)->GetName() == "b" && root->GetChild(0)->GetContent() == "y");
    EXPECT_EQ(root, root->GetChild(0)->GetParent());

    root = Parsed(manager, "<?xml version=\"1.0\"?>\n<r><img src=\"p.png\">t</img></r>")->GetXMLRoot();
    EXPECT_TRUE(root->GetName() == "?xml version=\"1.0\"?");
    ASSERT_EQ(1u, root->GetChildCount());
    EXPECT_TRUE(root->GetChild(0)->GetName() == "r");
    EXPECT_TRUE(root->GetChild(0)->GetChild(0)->GetName() == "img src=\"p.png\"");

    root = Parsed(manager, "\n<r>t</r>")->GetXMLRoot();
    EXPECT_TRUE(root->GetName() == "" && root->GetContent() == "");
    ASSERT_EQ(1u, root->GetChildCount());
    EXPECT_TRUE(root->GetChild(0)->GetName() == "r" && root->GetChild(0)->GetContent() == "t");

    // A self-closing tag takes the following siblings; unclosed elements end with the text.
    root = Parsed(manager, "<a><br/><b>x</b></a><c>")->GetXMLRoot();
    ASSERT_EQ(2u, root->GetChildCount());
    EXPECT_TRUE(root->GetChild(0)->GetName() == "br/" && root->GetChild(1)->GetName() == "c");
    EXPECT_TRUE(root->GetChild(0)->GetChild(0)->GetName() == "b");
    EXPECT_EQ(0u, root->GetChild(0)->GetChild(0)->GetChildCount());

    EXPECT_EQ(nullptr, Parsed(manager, "only text")->GetXMLRoot());
    EXPECT_TRUE(Parsed(manager, "</x><>")->GetXMLRoot()->GetName() == "/x");

    // The builder leaves the index after the element; closing names are not compared.
    OrvTObjectArray<OrvUnicode> tokens;
    OrvXMLFile::BuildXMLElementArray("<a><b></z>x</a><c>", tokens);
    unsigned int index = 0;
    OrvXMLElement* built = OrvXMLFile::BuildElement(tokens, index);
    EXPECT_EQ(5u, index);
    EXPECT_TRUE(built->GetContent() == "x" && built->GetChild(0)->GetName() == "b");
    delete built;
    index = 6;
    EXPECT_EQ(nullptr, OrvXMLFile::BuildElement(tokens, index));
}

TEST(OrvXML, PrintsByteForByte)
{
    OrvFileManager manager;
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
    EXPECT_EQ("#<n>caf?</n>\n", std::string(reinterpret_cast<const char*>(buffer.GetData()), buffer.GetSize()));
    EXPECT_EQ("<>\n</>\n", Printed(Parsed(manager, "<>")->GetXMLRoot()));
    EXPECT_EQ("", Printed(nullptr));
}

TEST(OrvXML, CompressedSaveLoadsBackAndStaysCompressed)
{
    OrvScratchDir dir;
    OrvFileManager manager;
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
    EXPECT_TRUE(loaded->GetXMLRoot()->SearchChildNamed("Anim")->GetContent() == "walk");
    loaded->Save("again.xml", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ(packed, OrvScratchDir::Read("again.xml"));

    EXPECT_FALSE(manager.GetOrLoad<OrvXMLFile>("plain.xml")->GetLoadedCompressed());

    // A broken envelope keeps the previous text and rebuilds the tree from it.
    OrvScratchDir::Write("broken.xml", std::string("7z\0\0\x40\0\0\0garbage!", 16));
    loaded->Load("broken.xml", "");
    EXPECT_EQ(0, loaded->GetSize());
    EXPECT_FALSE(loaded->GetLoadedCompressed());
    EXPECT_EQ(plain, Narrow(loaded->GetText()));
    EXPECT_TRUE(loaded->GetXMLRoot()->GetName() == "Animations");
}

TEST(OrvXML, LoadsFromMediaPathsThroughTheManager)
{
    OrvScratchDir dir;
    OrvScratchDir::Write("media/Sets.xml", "\xEF\xBB\xBF<Sets>\n<Set>hero</Set>\n</Sets>\n");
    OrvScratchDir::Write("empty.xml", "");
    OrvScratchDir::Write("words.xml", "no tags at all");
    OrvFileManager manager;
    manager.AddMediaPath("media");

    OrvXMLFile* file = manager.GetOrLoad<OrvXMLFile>("Sets.xml");
    EXPECT_TRUE(file->GetXMLRoot()->GetName() == "Sets");
    EXPECT_TRUE(file->GetXMLRoot()->GetChild(0)->GetContent() == "hero");
    EXPECT_EQ(file, manager.GetOrLoad<OrvXMLFile>("Sets.xml"));

    OrvXMLElement* empty = manager.GetOrLoad<OrvXMLFile>("empty.xml")->GetXMLRoot();
    EXPECT_TRUE(empty != nullptr && empty->GetName() == "" && empty->GetChildCount() == 0);
    OrvXMLFile* words = manager.GetOrLoad<OrvXMLFile>("words.xml");
    EXPECT_EQ(nullptr, words->GetXMLRoot());
    words->Save("out.xml", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ("", OrvScratchDir::Read("out.xml"));

    try
    {
        manager.GetOrLoad<OrvXMLFile>("Sets.XML");
        ADD_FAILURE() << "extension not checked";
    }
    catch (const OrvFileException& e)
    {
        EXPECT_STREQ("The given file name doesn't have the right file extension", e.message);
    }
}

TEST(OrvXML, TextBuilderMatchesEndTags)
{
    const OrvUnicode text("<a>x<b>y</b>z</a>!");
    unsigned int position = 0;
    OrvXMLElement* a = OrvXMLFile::BuildElement(text, position);
    EXPECT_EQ(17u, position);
    EXPECT_TRUE(a->GetName() == "a" && a->GetContent() == "z");
    ASSERT_EQ(1u, a->GetChildCount());
    EXPECT_TRUE(a->GetChild(0)->GetContent() == "y");
    delete a;

    EXPECT_EQ("Couldn't find a '>' while importing xml file", TextBuilderFailure("<a"));
    EXPECT_EQ("Couldn't find an end tag while importing xml file", TextBuilderFailure("<a>x</b>"));
    EXPECT_EQ("Couldn't find an end tag while importing xml file", TextBuilderFailure("<a><b></a>"));
    EXPECT_EQ("Couldn't find a '<' while importing xml file", TextBuilderFailure("<a><a></a>"));
}

TEST(OrvXML, ElementsOwnTheirSubtreesAndCopyShallow)
{
    OrvFileManager manager;
    OrvXMLFile* file = Parsed(manager, "<r><x>1</x><y><x>2</x></y><x>3</x></r>");
    OrvXMLElement* root = file->GetXMLRoot();
    root->GetChildren().Insert(0, nullptr);
    EXPECT_TRUE(root->SearchChildNamed("x")->GetContent() == "1");
    EXPECT_EQ(nullptr, root->SearchChildNamed("z"));
    EXPECT_EQ(nullptr, root->GetChild(1)->SearchChildNamed("y"));
    EXPECT_THROW(root->AddChild(root->GetChild(2)->GetChild(0)), OrvTreeNodeException);
    EXPECT_THROW(root->AddChild(nullptr), OrvTreeNodeException);

    root->GetAttributes().Add(new OrvXMLAttribute("k", "v"), false);
    OrvXMLElement copy(*root);
    EXPECT_TRUE(copy.GetName() == "r" && copy.GetChildCount() == 0 && copy.GetParent() == nullptr);
    ASSERT_EQ(1u, copy.GetAttributes().GetSize());
    EXPECT_NE(root->GetAttributes()[0], copy.GetAttributes()[0]);
    EXPECT_TRUE(copy.GetAttributes()[0]->GetValue() == "v");

    OrvXMLFile duplicate(*file);
    EXPECT_TRUE(duplicate.GetXMLRoot() != root && duplicate.GetXMLRoot()->GetName() == "r");
    EXPECT_EQ(0u, duplicate.GetXMLRoot()->GetChildCount());
    EXPECT_EQ(0u, duplicate.GetText().Length());

    root->DeleteAllChildren();
    EXPECT_EQ(0u, root->GetChildCount());
}

TEST(OrvXML, DeepAndDamagedInputNeverCrashes)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    std::string deep;
    for (int i = 0; i < 200000; ++i)
        deep += "<d>";
    OrvXMLFile* file = Parsed(manager, deep.c_str());
    EXPECT_EQ(1u, file->GetXMLRoot()->GetChildCount());
    EXPECT_EQ(200000u * 9u, Printed(file->GetXMLRoot()).size());

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
