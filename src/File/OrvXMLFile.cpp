#include "OrvXMLFile.h"

#include <utility>
#include <vector>

#include "CZLibBuffer.h"
#include "OrvFileException.h"
#include "OrvXMLEndTags.h"

namespace
{
const char* const kSource = "src/File/OrvXMLFile";
const int kCompressionLevel = 1;

bool IsClosingTag(const char16_t* token, unsigned int length)
{
    return length >= 2 && token[0] == u'<' && token[1] == u'/';
}

// out = text[start, start + count), or "" when count is 0.
void SetRange(OrvUnicode& out, const OrvUnicode& text, unsigned int start, unsigned int count)
{
    if (count == 0 || !text.SubUnicode(out, start, count))
        out = "";
}

// Calls visit(start, length) for every token of the text, in order, until
// visit answers false. A token is a run ending just before a '<', or a run
// ending with a '>' (included); whatever follows the last '>' is no token.
template <class Visit>
void ForEachToken(const OrvUnicode& text, Visit visit)
{
    const char16_t* const data = text.GetData();
    const unsigned int length = text.Length();
    unsigned int start = 0;
    for (unsigned int i = 0; i < length; ++i)
    {
        if (data[i] == u'<')
        {
            if (start != i)
            {
                if (!visit(start, i - start))
                    return;
                start = i;
            }
        }
        else if (data[i] == u'>')
        {
            if (!visit(start, i - start + 1))
                return;
            start = i + 1;
        }
    }
}

// Depth-first walk without recursion: enter(e) before e's children, leave(e)
// after them. Null children are skipped.
template <class Enter, class Leave>
void Walk(OrvXMLElement* root, Enter enter, Leave leave)
{
    if (root == nullptr)
        return;
    std::vector<std::pair<OrvXMLElement*, unsigned int>> stack;
    enter(root);
    stack.emplace_back(root, 0u);
    while (!stack.empty())
    {
        OrvXMLElement* const node = stack.back().first;
        const unsigned int next = stack.back().second;
        if (next < node->GetChildCount())
        {
            ++stack.back().second;
            OrvXMLElement* const child = node->GetChild(next);
            if (child != nullptr)
            {
                enter(child);
                stack.emplace_back(child, 0u);
            }
            continue;
        }
        leave(node);
        stack.pop_back();
    }
}

// An element whose content is empty or one line feed prints its opening tag on
// a line of its own; any other content follows the opening tag directly.
bool PrintsContent(const OrvUnicode& content)
{
    const unsigned int length = content.Length();
    return length > 1 || (length == 1 && content.GetData()[0] != u'\n');
}

// Narrowed characters: one byte each, '?' for those above 0x7F.
unsigned char* PutText(unsigned char* out, const OrvUnicode& text)
{
    const char16_t* const data = text.GetData();
    const unsigned int length = text.Length();
    for (unsigned int i = 0; i < length; ++i)
        *out++ = static_cast<unsigned char>(data[i] <= 0x7F ? data[i] : u'?');
    return out;
}
} // namespace

// Builds one element and its subtree from tokens fed in order; the elements
// still open are kept on an explicit stack, so that deep nesting cannot
// exhaust the call stack. Owns what it built until Release.
struct OrvXMLFile::TreeBuilder
{
    // `file` names the document in refusals (may be null).
    explicit TreeBuilder(const OrvXMLFile* file = nullptr) : root(nullptr), elements(0), owner(file) {}
    ~TreeBuilder() { delete root; }
    TreeBuilder(const TreeBuilder&) = delete;
    TreeBuilder& operator=(const TreeBuilder&) = delete;

    OrvXMLElement* Release()
    {
        OrvXMLElement* const built = root;
        root = nullptr;
        return built;
    }

    // Makes `element` a child of `parent`, destroying it when that is refused.
    static void Attach(OrvXMLElement* parent, OrvXMLElement* element)
    {
        try
        {
            parent->AddChild(element);
        }
        catch (...)
        {
            delete element;
            throw;
        }
    }

    // The token text[start, start + length). Answers false once the element
    // begun by the first token is complete.
    bool Feed(const OrvUnicode& text, unsigned int start, unsigned int length)
    {
        const char16_t* const token = (length != 0) ? text.GetData() + start : nullptr;
        if (root == nullptr)
        {
            root = Open(text, start, length);
            open.push_back(root);
            return true;
        }
        if (IsClosingTag(token, length))
        {
            open.pop_back();
            return !open.empty();
        }
        if (length != 0 && token[0] == u'<')
        {
            if (open.size() >= kMaxDepth)
                Refuse("The xml file nests its elements too deeply");
            OrvXMLElement* const child = Open(text, start, length);
            Attach(open.back(), child);
            open.push_back(child);
            return true;
        }
        SetRange(open.back()->m_content, text, start, length);
        return true;
    }

    // An element named by the token less its first and last characters.
    OrvXMLElement* Open(const OrvUnicode& text, unsigned int start, unsigned int length)
    {
        if (++elements > kMaxElements)
            Refuse("The xml file holds too many elements");
        OrvXMLElement* const element = new OrvXMLElement();
        if (length > 2)
            SetRange(element->m_name, text, start + 1, length - 2);
        return element;
    }

    [[noreturn]] void Refuse(const char* what) const
    {
        if (owner != nullptr)
            ORV_THROW(OrvFileException, owner->MessageNaming(what), kSource);
        ORV_THROW(OrvFileException, what, kSource);
    }

    OrvXMLElement* root;
    std::vector<OrvXMLElement*> open;
    unsigned int elements;
    const OrvXMLFile* owner;
};

OrvXMLFile::OrvXMLFile() : OrvFile(), m_loadedCompressed(false), m_text(), m_root(nullptr)
{
    m_extension = "xml";
}

OrvXMLFile::OrvXMLFile(const OrvXMLFile& other)
    : OrvFile(other), m_loadedCompressed(other.m_loadedCompressed), m_text(), m_root(nullptr)
{
    m_root = (other.m_root != nullptr) ? new OrvXMLElement(*other.m_root) : new OrvXMLElement();
}

OrvXMLFile& OrvXMLFile::operator=(const OrvXMLFile& other)
{
    if (this != &other)
    {
        OrvFile::operator=(other);
        m_loadedCompressed = other.m_loadedCompressed;
        OrvXMLElement* const root = (other.m_root != nullptr) ? new OrvXMLElement(*other.m_root) : new OrvXMLElement();
        delete m_root;
        m_root = root;
    }
    return *this;
}

OrvXMLFile::~OrvXMLFile()
{
    delete m_root;
    m_root = nullptr;
}

void OrvXMLFile::Create(OrvFileManager* manager, unsigned int id)
{
    if (m_id != 0)
        return;
    OrvFile::Create(manager, id);
    OrvXMLElement* const root = new OrvXMLElement();
    delete m_root;
    m_root = root;
}

void OrvXMLFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    Guarded([&] {
        m_loadedCompressed = false;
        OrvFile::Load(name, path);
        try
        {
            if (m_size <= 0)
            {
                Close();
                return;
            }
            if (static_cast<unsigned long long>(m_size) > kMaxDocumentBytes)
                ORV_THROW(OrvFileException, MessageNaming("The xml file is too large"), kSource);
            AllocateData(static_cast<unsigned long>(m_size));
            Read(m_data, m_size, 1);
            // An envelope that could really expand that far (one that could not is
            // damaged, and handled as such below).
            const unsigned long declared = CZLibBuffer::DeclaredLength(m_data, static_cast<unsigned long>(m_size));
            if (declared > kMaxDocumentBytes &&
                declared <= CZLibBuffer::MaxUncompressedLength(static_cast<unsigned long>(m_size)))
                ORV_THROW(OrvFileException, MessageNaming("The xml file expands beyond what a document may hold"),
                          kSource);

            CZLibBuffer document;
            switch (document.Uncompress(m_data, static_cast<unsigned long>(m_size)))
            {
            case 2:
                DecodeText(document.GetData(), document.GetSize());
                m_loadedCompressed = true;
                break;
            case 1:
                DecodeText(m_data, static_cast<unsigned long>(m_size));
                break;
            default:
                // A broken envelope: the previous text stays and is parsed again.
                m_size = 0;
                break;
            }
            BuildTree();
        }
        catch (...)
        {
            Close();
            throw;
        }
        Close();
    });
}

void OrvXMLFile::DecodeText(const unsigned char* bytes, unsigned long length)
{
    if (length == 0)
        m_text = "";
    else
        m_text.SetFromUTF8(reinterpret_cast<const char*>(bytes), static_cast<unsigned int>(length));
}

void OrvXMLFile::Save(const OrvUnicode& name, SAVE_OPTION option)
{
    OrvFile::Save(name, option);
    try
    {
        if (!m_loadedCompressed && (option & SAVE_COMPRESSED) == 0)
        {
            PrintElement(m_root);
        }
        else
        {
            CStdBuffer printed;
            PrintElement(m_root, printed);
            CZLibBuffer compressed;
            if (compressed.Compress(printed.GetData(), printed.GetSize(), kCompressionLevel) != 2)
                ORV_THROW(OrvFileException, MessageNaming("Couldn't compress xml file"), kSource);
            Write(compressed.GetData(), 1, compressed.GetSize());
        }
    }
    catch (...)
    {
        Close();
        throw;
    }
    Close();
}

void OrvXMLFile::BuildXMLElementArray(const OrvUnicode& text, OrvTObjectArray<OrvUnicode>& tokens)
{
    OrvUnicode token;
    ForEachToken(text, [&](unsigned int start, unsigned int length) {
        SetRange(token, text, start, length);
        tokens.Add(token);
        return true;
    });
}

OrvXMLElement* OrvXMLFile::BuildElement(const OrvTObjectArray<OrvUnicode>& tokens, unsigned int& index)
{
    if (index >= tokens.GetCount())
        return nullptr;
    TreeBuilder builder;
    while (index < tokens.GetCount())
    {
        const OrvUnicode& token = tokens[index];
        ++index;
        if (!builder.Feed(token, 0, token.Length()))
            break;
    }
    return builder.Release();
}

void OrvXMLFile::BuildTree()
{
    delete m_root;
    m_root = nullptr;
    TreeBuilder builder(this);
    ForEachToken(m_text, [&](unsigned int start, unsigned int length) { return builder.Feed(m_text, start, length); });
    m_root = builder.Release();
}


OrvXMLElement* OrvXMLFile::BuildElement(const OrvUnicode& text, unsigned int& position)
{
    // Elements whose end tag has not been reached yet, innermost last.
    struct Frame
    {
        OrvXMLElement* element;
        unsigned int endTag;
        unsigned int endTagLength;
        unsigned int contentStart;
    };
    const EndTags endTags(text);
    TreeBuilder owner;
    std::vector<Frame> frames;
    for (;;)
    {
        // Open the element whose tag starts at `position`.
        unsigned int close = 0;
        if (!text.Search(">", close, position))
            ORV_THROW(OrvFileException, "Couldn't find a '>' while importing xml file", kSource);
        if (frames.size() >= kMaxDepth)
            ORV_THROW(OrvFileException, "The xml file nests its elements too deeply", kSource);
        if (++owner.elements > kMaxElements)
            ORV_THROW(OrvFileException, "The xml file holds too many elements", kSource);
        OrvXMLElement* const element = new OrvXMLElement();
        if (frames.empty())
            owner.root = element;
        else
            TreeBuilder::Attach(frames.back().element, element);
        SetRange(element->m_name, text, position + 1, (close > position) ? close - position - 1 : 0);

        unsigned int endTagPosition = 0;
        if (!endTags.Find(element->m_name, close, endTagPosition))
            ORV_THROW(OrvFileException, "Couldn't find an end tag while importing xml file", kSource);
        unsigned int next = 0;
        if (!text.Search("<", next, close))
            ORV_THROW(OrvFileException, "Couldn't find a '<' while importing xml file", kSource);
        const unsigned int contentStart = position + element->m_name.Length() + 2;
        position = next;
        frames.push_back(Frame{element, endTagPosition, element->m_name.Length() + 3, contentStart});

        // Close every element whose end tag has been reached; a '<' before the
        // end tag opens a child instead.
        while (position >= frames.back().endTag)
        {
            Frame& frame = frames.back();
            SetRange(frame.element->m_content, text, frame.contentStart,
                     (position > frame.contentStart) ? position - frame.contentStart : 0);
            position += frame.endTagLength;
            frames.pop_back();
            if (frames.empty())
                return owner.Release();
            frames.back().contentStart = position;
            if (!text.Search("<", next, position))
                ORV_THROW(OrvFileException, "Couldn't find a '<' while importing xml file", kSource);
            position = next;
        }
    }
}

void OrvXMLFile::PrintElement(OrvXMLElement* element)
{
    CStdBuffer printed;
    PrintElement(element, printed);
    if (printed.GetSize() != 0)
        Write(printed.GetData(), 1, printed.GetSize());
}

void OrvXMLFile::PrintElement(OrvXMLElement* element, CStdBuffer& buffer) const
{
    // One pass measures, one pass writes: the buffer grows once.
    unsigned long long total = 0;
    Walk(
        element,
        [&](OrvXMLElement* e) {
            total += e->GetName().Length() + 2ull;
            total += PrintsContent(e->GetContent()) ? e->GetContent().Length() : 1ull;
        },
        [&](OrvXMLElement* e) { total += e->GetName().Length() + 4ull; });
    if (total == 0)
        return;
    const unsigned long base = buffer.GetSize();
    if (total > 0xFFFFFFFFull - base || !buffer.SetSize(base + static_cast<unsigned long>(total)) ||
        buffer.GetSize() != base + total)
        ORV_THROW(OrvFileException, MessageNaming("Not enough memory to print the xml file"), kSource);

    unsigned char* out = buffer.GetData() + base;
    Walk(
        element,
        [&](OrvXMLElement* e) {
            *out++ = '<';
            out = PutText(out, e->GetName());
            *out++ = '>';
            if (PrintsContent(e->GetContent()))
                out = PutText(out, e->GetContent());
            else
                *out++ = '\n';
        },
        [&](OrvXMLElement* e) {
            *out++ = '<';
            *out++ = '/';
            out = PutText(out, e->GetName());
            *out++ = '>';
            *out++ = '\n';
        });
}
