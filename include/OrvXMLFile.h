#ifndef ORV_XML_FILE_H
#define ORV_XML_FILE_H

#include "CStdBuffer.h"
#include "OrvFile.h"
#include "OrvTObjectArray.h"
#include "OrvUnicode.h"
#include "OrvXMLElement.h"

/// An XML document read into a tree of elements and written back from it. The
/// dialect is small: elements with a name, a text content and children; nothing
/// else (attributes, declarations, comments, entities) is interpreted. A file
/// may come wrapped in the compressed envelope of CZLibBuffer; a document loaded
/// that way is saved the same way.
///
/// Documents come from players and modders, so reading one is bounded: a
/// document (its bytes, or what its envelope says it expands to) may hold at
/// most kMaxDocumentBytes, and its tree at most kMaxElements elements nested at
/// most kMaxDepth deep. Beyond that, Load refuses the file with
/// OrvFileException, naming it, before the work or the memory runs away.
class OrvXMLFile : public OrvFile
{
public:
    static const unsigned long kMaxDocumentBytes = 16ul << 20;
    static const unsigned int kMaxElements = 250000;
    static const unsigned int kMaxDepth = 1000;

    OrvXMLFile();
    /// Copies the file part and the loaded-compressed flag; the copy gets a root
    /// of its own holding the source root's name, attributes and content (not its
    /// children). The text is not copied.
    OrvXMLFile(const OrvXMLFile& other);
    OrvXMLFile& operator=(const OrvXMLFile& other);
    ~OrvXMLFile() override;

    /// The first call binds the file and gives it a new empty root; later calls
    /// do nothing.
    void Create(OrvFileManager* manager, unsigned int id) override;
    void Load(const OrvUnicode& name, const OrvUnicode& path) override;
    void Save(const OrvUnicode& name, SAVE_OPTION option) override;

    OrvXMLElement* GetXMLRoot() const { return m_root; }
    /// Takes the new root as the file's own; the previous one is left to the caller.
    void SetXMLRoot(OrvXMLElement* root) { m_root = root; }
    bool GetLoadedCompressed() const { return m_loadedCompressed; }
    const OrvUnicode& GetText() const { return m_text; }
    void SetText(const OrvUnicode& text) { m_text = text; }

    /// Cuts a text into tokens, appended to `tokens`: each tag with its angle
    /// brackets, and each run of characters between tags. Whatever follows the
    /// last '>' is dropped.
    static void BuildXMLElementArray(const OrvUnicode& text, OrvTObjectArray<OrvUnicode>& tokens);
    /// Builds the element opened by tokens[index] and its subtree; `index` ends
    /// after the element. Null when index is past the tokens. Never fails on
    /// malformed input.
    static OrvXMLElement* BuildElement(const OrvTObjectArray<OrvUnicode>& tokens, unsigned int& index);
    /// Destroys the root and builds a new one from the stored text.
    void BuildTree();
    /// Builds the element whose opening tag starts at text[position] ('<') by
    /// matching its end tag; `position` ends after the end tag. Throws
    /// OrvFileException on a missing '>', end tag or '<'.
    static OrvXMLElement* BuildElement(const OrvUnicode& text, unsigned int& position);

    /// Writes the element and its subtree to the open file.
    void PrintElement(OrvXMLElement* element);
    /// Appends the very same bytes to a buffer.
    void PrintElement(OrvXMLElement* element, CStdBuffer& buffer) const;

private:
    struct TreeBuilder;

    void DecodeText(const unsigned char* bytes, unsigned long length);

    bool m_loadedCompressed;
    OrvUnicode m_text;
    OrvXMLElement* m_root;
};

#endif
