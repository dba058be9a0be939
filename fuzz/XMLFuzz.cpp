// XML documents, plain or in the compressed envelope, loaded as the engine
// loads them (the file manager's GetOrLoad), then walked the ways a game
// does: printed back as for a save, and cut again by the element builder that
// works on the decoded text and by the one that works on tokens.

#include "CStdBuffer.h"
#include "CZLibBuffer.h"
#include "OrvFileManager.h"
#include "OrvFuzz.h"
#include "OrvTObjectArray.h"
#include "OrvXMLFile.h"

namespace
{
// The two builders run again over texts up to this many characters: enough
// for any shape of tree to show a cost that grows faster than the text, while
// the time limit on a large document (a compressed one expands up to a
// thousandfold) stays the loader's own.
const unsigned int kBuilderText = 1u << 17;
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::ScratchFile input("fuzz.xml", data, size);
    OrvFileManager files;
    files.AddMediaPath(orvfuzz::ScratchDir().c_str());
    OrvXMLFile* document = nullptr;
    OrvUnicode text;
    if (orvfuzz::Refusable([&] { document = files.GetOrLoad<OrvXMLFile>("fuzz.xml"); }))
    {
        orvfuzz::Refusable([&] {
            CStdBuffer printed;
            document->PrintElement(document->GetXMLRoot(), printed);
        });
        text = document->GetText();
    }
    else
    {
        // The builders are public and take any text: what the loader refused
        // (too deep, too many elements) is still theirs to cut, decoded as the
        // loader decodes it.
        CZLibBuffer envelope;
        if (envelope.Uncompress(data, size) == 2)
            text.SetFromUTF8(reinterpret_cast<const char*>(envelope.GetData()),
                             static_cast<unsigned int>(envelope.GetSize()));
        else
            text.SetFromUTF8(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size));
    }

    if (text.Length() > kBuilderText)
        return 0;
    unsigned int position = 0;
    if (text.Search("<", position, 0))
        orvfuzz::Refusable([&] { delete OrvXMLFile::BuildElement(text, position); });

    orvfuzz::Refusable([&] {
        OrvTObjectArray<OrvUnicode> tokens;
        OrvXMLFile::BuildXMLElementArray(text, tokens);
        unsigned int index = 0;
        delete OrvXMLFile::BuildElement(tokens, index);
    });
    return 0;
}
