#include "OrvException.h"

#include <new>


#include "OrvArrayException.h"
#include "OrvTreeNodeException.h"
#include "OrvStackException.h"
#include "OrvSingletonException.h"
#include "OrvUnicodeException.h"
#include "OrvFileException.h"
#include "OrvRendererException.h"
#include "OrvTextureException.h"
#include "OrvCgException.h"
#include "OrvSoundException.h"
#include "OrvInputException.h"
#include "OrvInvalidMatrixException.h"
#include "OrvInvalidSpriteException.h"
#include "OrvInvalidAnimationException.h"
#include "OrvImportSpriteSetException.h"
#include "OrvAnimationFileCurruptedException.h"
#include "OrvMessageException.h"

namespace
{
const char* const kBaseName = "Orv Exception";
}

OrvException::OrvException() : message(""), file(""), name(kBaseName), line(-1) {}

OrvException::OrvException(const char* message_, const char* file_, int line_)
    : message(message_), file(file_), name(kBaseName), line(line_)
{
}

OrvException::OrvException(const char* message_, const char* file_, int line_, const char* displayName)
    : message(message_), file(file_), name(displayName), line(line_)
{
}

OrvException::OrvException(const std::string& message_, const char* file_, int line_)
    : OrvException(message_, file_, line_, kBaseName)
{
}

OrvException::OrvException(const std::string& message_, const char* file_, int line_, const char* displayName)
    : message(""), file(file_), name(displayName), line(line_)
{
    // Out of memory, the exception still tells what happened, in general terms.
    try
    {
        m_text = std::make_shared<const std::string>(message_);
        message = m_text->c_str();
    }
    catch (const std::bad_alloc&)
    {
        message = "Not enough memory to tell what went wrong";
    }
}

OrvException::OrvException(const OrvException& other) = default;
OrvException& OrvException::operator=(const OrvException& other) = default;
OrvException::~OrvException() = default;

void OrvException::Report() {}


// A default-built member keeps the base's display name; one built from a
// message carries its own.
#define ORV_DEFINE_EXCEPTION(ClassName, DisplayName)                                        \
    ClassName::ClassName() : OrvException() {}                                              \
    ClassName::ClassName(const char* message_, const char* file_, int line_)                \
        : OrvException(message_, file_, line_, DisplayName)                                 \
    {                                                                                       \
    }                                                                                       \
    ClassName::ClassName(const std::string& message_, const char* file_, int line_)         \
        : OrvException(message_, file_, line_, DisplayName)                                 \
    {                                                                                       \
    }                                                                                       \
    ClassName::ClassName(const ClassName& other) = default;                                 \
    ClassName& ClassName::operator=(const ClassName& other) = default;                      \
    ClassName::~ClassName() = default;

ORV_DEFINE_EXCEPTION(OrvArrayException, "Orv Array Exception")
ORV_DEFINE_EXCEPTION(OrvTreeNodeException, "Orv Tree Node Exception")
ORV_DEFINE_EXCEPTION(OrvStackException, "Orv Stack Exception")
ORV_DEFINE_EXCEPTION(OrvSingletonException, "Orv Singleton Exception")
ORV_DEFINE_EXCEPTION(OrvUnicodeException, "Orv Unicode Exception")
ORV_DEFINE_EXCEPTION(OrvFileException, "Orv File Exception")
ORV_DEFINE_EXCEPTION(OrvRendererException, "Orv Renderer Exception")
ORV_DEFINE_EXCEPTION(OrvTextureException, "Orv Texture Exception")
ORV_DEFINE_EXCEPTION(OrvCgException, "Orv Cg Exception")
ORV_DEFINE_EXCEPTION(OrvSoundException, "Orv Sound Exception")
ORV_DEFINE_EXCEPTION(OrvInputException, "Orv Input Exception")
ORV_DEFINE_EXCEPTION(OrvInvalidMatrixException, "Orv Invalid Matrix Exception")
ORV_DEFINE_EXCEPTION(OrvInvalidSpriteException, "Orv Invalid Sprite Exception")
ORV_DEFINE_EXCEPTION(OrvInvalidAnimationException, "Orv Invalid Animation Exception")
ORV_DEFINE_EXCEPTION(OrvImportSpriteSetException, "Orv Import Sprite Set Exception")
ORV_DEFINE_EXCEPTION(OrvAnimationFileCurruptedException, "Orv Animation File Currupted Exception")
ORV_DEFINE_EXCEPTION(OrvMessageException, "Orv Message Exception")
