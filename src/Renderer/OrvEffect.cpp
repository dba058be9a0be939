#include "OrvEffect.h"

#include <string>

#include "OrvApplication.h"
#include "OrvEffectManager.h"
#include "OrvFileManager.h"
#include "OrvRenderer.h"
#include "OrvShaderRuntime.h"
#include "OrvTextFile.h"

namespace
{
// The file's bytes as text, ending where the file ends whatever its class.
std::string TextOf(const OrvFile& file)
{
    const unsigned char* data = file.GetData();
    if (data == nullptr || file.GetSize() <= 0)
        return std::string();
    return std::string(reinterpret_cast<const char*>(data), static_cast<std::size_t>(file.GetSize()));
}

// The registered file of that name, or a text file loaded now. A file of
// another class registered under the name serves as it is.
OrvFile* SourceFile(OrvFileManager* files, const OrvUnicode& path)
{
    OrvFile* file = files->GetOrLoad<OrvTextFile>(path);
    return file != nullptr ? file : files->GetFile(path);
}

// Sources are compiled once and never kept; the two stages may share a file.
void ReleaseSources(OrvFileManager* files, OrvFile* vertex, OrvFile* fragment)
{
    if (vertex != nullptr)
        files->DeleteOrvFile(vertex);
    if (fragment != nullptr && fragment != vertex)
        files->DeleteOrvFile(fragment);
}
}  // namespace

OrvEffect::OrvEffect(OrvEffectManager* manager, const OrvUnicode& vsPath, const OrvUnicode& fsPath)
    : m_effectManager(manager), m_vsPath(vsPath), m_fsPath(fsPath), m_vsProgram(nullptr), m_fsProgram(nullptr),
      m_state(0)
{
    if (m_effectManager != nullptr)
        m_effectManager->GetRenderer()->DeclareEffect(this);
}

OrvEffect::~OrvEffect()
{
    if (m_effectManager != nullptr)
        m_effectManager->GetRenderer()->UndeclareEffect(this);
}

OrvFileManager* OrvEffect::ReachFileManager() const
{
    const OrvRenderer* renderer = m_effectManager != nullptr ? m_effectManager->GetRenderer() : nullptr;
    const OrvApplication* application = OrvApplication::Of(renderer);
    return application != nullptr ? application->GetFileManager() : nullptr;
}

int OrvEffect::Declare()
{
    if (Declared())
        return 1;
    OrvFileManager* files = ReachFileManager();
    if (files == nullptr)
    {
        m_state |= kDeferred;
        return 2;
    }
    CompilePrograms(files);
    cgGLLoadProgram(m_vsProgram);
    cgGLLoadProgram(m_fsProgram);
    m_state |= kDeclared;
    return 1;
}

void OrvEffect::CompilePrograms(OrvFileManager* files)
{
    const CGcontext context = m_effectManager->GetRenderer()->GetCGContext();
    OrvFile* vertexFile = nullptr;
    OrvFile* fragmentFile = nullptr;
    CGprogram vertex = nullptr;
    try
    {
        vertexFile = SourceFile(files, m_vsPath);
        vertex =
            cgCreateProgram(context, CG_SOURCE, TextOf(*vertexFile).c_str(), CG_PROFILE_ARBVP1, "VSMain", nullptr);
        fragmentFile = SourceFile(files, m_fsPath);
        m_fsProgram =
            cgCreateProgram(context, CG_SOURCE, TextOf(*fragmentFile).c_str(), CG_PROFILE_ARBFP1, "FSMain", nullptr);
        m_vsProgram = vertex;
    }
    catch (...)
    {
        // Nothing of a half-made declaration stays behind.
        if (vertex != nullptr)
            cgDestroyProgram(vertex);
        ReleaseSources(files, vertexFile, fragmentFile);
        throw;
    }
    ReleaseSources(files, vertexFile, fragmentFile);
}

bool OrvEffect::UnDeclare()
{
    m_state &= ~kDeferred;
    if (Declared())
    {
        cgGLUnloadProgram(m_vsProgram);
        cgGLUnloadProgram(m_fsProgram);
        cgDestroyProgram(m_vsProgram);
        cgDestroyProgram(m_fsProgram);
        m_state &= ~kDeclared;
    }
    return true;
}

void OrvEffect::DeferDeclaration(bool defer)
{
    if (!defer)
        m_state &= ~kDeferred;
    else if (!Declared())
        m_state |= kDeferred;
}

bool OrvEffect::ExecuteDefferedDeclaration(bool keepWaiting)
{
    const int result = Declare();
    if (result == 1 || (result == 0 && !keepWaiting))
        m_state &= ~kDeferred;
    return result == 1;
}

bool OrvEffect::MonitorDefferedDeclaration(bool keepWaiting)
{
    if (!DeferredDeclaration())
        return true;
    return ExecuteDefferedDeclaration(keepWaiting);
}
