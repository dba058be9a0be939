#include "OrvRenderer.h"

#include "OrvCgException.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvEffect.h"
#include "OrvEffectManager.h"
#include "OrvRendererException.h"
#include "OrvShaderRuntime.h"
#include "OrvVector3D.h"
#include "OrvVertex.h"

namespace
{
const char* const kSource = "src/Renderer/OrvRenderer";
const unsigned int kStackCapacity = 15;
}  // namespace

void CgErrorCallback()
{
    const CGerror error = cgGetError();
    // The runtime's text lives only until its next error: the exception keeps a copy.
    ORV_THROW(OrvCgException, std::string(cgGetErrorString(error)), kSource);
}

OrvRenderer::OrvRenderer(OrvApplication* application)
    : m_cgContextCreated(false),
      m_application(application),
      m_rendererType(0),
      m_initialized(false),
      m_rendering(false),
      m_cgContext(nullptr),
      m_modelStack(kStackCapacity),
      m_viewStack(kStackCapacity),
      m_projectionStack(kStackCapacity),
      m_modelView(),
      m_colorMaterial(nullptr),
      m_effectManager(nullptr),
      m_viewportX(0),
      m_viewportY(0),
      m_viewportWidth(0),
      m_viewportHeight(0)
{
}

OrvRenderer::~OrvRenderer()
{
    DestroyColorMaterial();
    DestroyEffectManager();
    if (m_cgContext != nullptr)
        cgDestroyContext(m_cgContext);
}

bool OrvRenderer::Init(unsigned int, unsigned int, unsigned int, unsigned int)
{
    if (m_initialized)
        ORV_THROW(OrvRendererException, "Renderer already initialized", kSource);
    if (m_effectManager != nullptr)
        ORV_THROW(OrvRendererException, "Non NULL effect manager referenced at initialization", kSource);
    CreateContext();
    SetClearColor(OrvColor(0, 0, 0, 255));
    CreateEffectManager();
    m_initialized = true;
    return true;
}

bool OrvRenderer::Setup(unsigned int x, unsigned int y, unsigned int width, unsigned int height)
{
    if (!m_initialized && !Init(x, y, width, height))
        return false;
    if (m_effectManager == nullptr)
        ORV_THROW(OrvRendererException, "NULL effect mgr referenced on setup", kSource);
    m_viewportX = x;
    m_viewportY = y;
    m_viewportWidth = width;
    m_viewportHeight = height;
    return true;
}

void OrvRenderer::CreateContext()
{
    if (m_cgContext != nullptr)
        return;
    m_cgContextCreated = true;
    m_cgContext = cgCreateContext();
    cgSetErrorCallback(CgErrorCallback);
}

void OrvRenderer::ChangeContext()
{
    if (m_cgContext == nullptr)
        return;
    cgDestroyContext(m_cgContext);
    m_cgContext = cgCreateContext();
    cgSetErrorCallback(CgErrorCallback);
}

void OrvRenderer::CreateEffectManager()
{
    if (m_effectManager == nullptr)
        m_effectManager = new OrvEffectManager(this);
}

void OrvRenderer::DestroyEffectManager()
{
    delete m_effectManager;
    m_effectManager = nullptr;
}

void OrvRenderer::CreateColorMaterial()
{
    if (m_colorMaterial == nullptr)
        m_colorMaterial = new OrvColorMaterial(this);
}

void OrvRenderer::DestroyColorMaterial()
{
    delete m_colorMaterial;
    m_colorMaterial = nullptr;
}

void OrvRenderer::RequireInitialized(const char* message) const
{
    if (!m_initialized)
        ORV_THROW(OrvRendererException, message, kSource);
}

void OrvRenderer::RequireNotRendering(const char* message) const
{
    if (m_rendering)
        ORV_THROW(OrvRendererException, message, kSource);
}

void OrvRenderer::PreRender()
{
    RequireInitialized("You tried to pre render before initialising the renderer");
    LoadIdentityMatrix(TRANS_MATRIX_MODEL);
}

void OrvRenderer::PostRender()
{
    RequireInitialized("You tried to post render before initialising the renderer");
}

void OrvRenderer::Begin(OrvRenderMode)
{
    RequireInitialized("You tried to begin rendering before initialising the renderer");
    m_rendering = true;
}

void OrvRenderer::End()
{
    RequireInitialized("You tried to end rendering before initialising the renderer");
    m_rendering = false;
}

void OrvRenderer::Vertex(OrvVertex*)
{
    RequireInitialized("You tried to render a vertex before initialising the renderer");
    if (!m_rendering)
        ORV_THROW(OrvRendererException, "You tried to render a vertex outside of begin and end", kSource);
}

void OrvRenderer::ActivatePass(OrvPass*)
{
    RequireInitialized("You tried to activate a pass before initialising the renderer");
    RequireNotRendering("You tried to activate a pass while rendering");
}

void OrvRenderer::DeclareEffect(OrvEffect* effect)
{
    RequireInitialized("You tried to declare an effect before initialising the renderer");
    RequireNotRendering("You tried to declare an effect while rendering");
    effect->Declare();
}

void OrvRenderer::UndeclareEffect(OrvEffect* effect)
{
    RequireInitialized("You tried to undeclare an effect before initialising the renderer");
    RequireNotRendering("You tried to undeclare an effect while rendering");
    effect->UnDeclare();
}

void OrvRenderer::SetEffectParameter(OrvEffect* effect, const char* name, void* value)
{
    RequireInitialized("You tried to set an effect parameter before initialising the renderer");
    RequireNotRendering("You tried to set an effect parameter while rendering");
    SetParameterValue(FindEffectParameter(effect, name), value);
}

CGparameter OrvRenderer::FindEffectParameter(OrvEffect* effect, const char* name) const
{
    CGparameter parameter = nullptr;
    if (effect != nullptr && effect->Declared())
    {
        parameter = cgGetNamedParameter(effect->GetVSProgram(), name);
        if (parameter == nullptr)
            parameter = cgGetNamedParameter(effect->GetFSProgram(), name);
    }
    if (parameter == nullptr)
        ORV_THROW(OrvRendererException, "You tried to set an effect parameter that doesn't exist", kSource);
    return parameter;
}

void OrvRenderer::SetParameterValue(CGparameter parameter, const void* value)
{
    switch (cgGetParameterType(parameter))
    {
    case CG_FLOAT:
        cgSetParameter1f(parameter, *static_cast<const float*>(value));
        break;
    case CG_FLOAT4:
        cgSetParameter4fv(parameter, static_cast<const float*>(value));
        break;
    case CG_FLOAT4x4:
        cgSetMatrixParameterfc(parameter, static_cast<const OrvMatrix*>(value)->GetValues());
        break;
    case CG_INT:
        cgSetParameter1i(parameter, *static_cast<const int*>(value));
        break;
    default:
        ORV_THROW(OrvRendererException, "You tried to set a pass parameter of an unsupported type ! ", kSource);
    }
}

void OrvRenderer::SetTextureUnit(OrvTextureUnit, OrvTexture*)
{
    RequireInitialized("You tried to set a texture unit before initialising the renderer");
    RequireNotRendering("You tried to set a texture unit while rendering");
}

void OrvRenderer::Flush() {}

void OrvRenderer::Finish()
{
    Flush();
}

void OrvRenderer::SetBatching(bool) {}

bool OrvRenderer::GetBatching() const
{
    return false;
}

void OrvRenderer::RenderLine(const OrvVector3D& from, const OrvVector3D& to, const OrvColor& color)
{
    CreateColorMaterial();
    m_colorMaterial->SetColor(color);
    m_colorMaterial->ActivatePass(0);
    OrvVertex vertex;
    vertex.SetPosition(from);
    Begin(RENDER_MODE_LINES);
    Vertex(&vertex);
    vertex.SetPosition(to);
    Vertex(&vertex);
    End();
}

OrvTStack<OrvMatrix>* OrvRenderer::Stack(OrvTransMatrix kind)
{
    switch (kind)
    {
    case TRANS_MATRIX_MODEL: return &m_modelStack;
    case TRANS_MATRIX_VIEW: return &m_viewStack;
    case TRANS_MATRIX_PROJECTION: return &m_projectionStack;
    }
    return nullptr;
}

OrvMatrix& OrvRenderer::PeekMatrix(OrvTransMatrix kind)
{
    OrvTStack<OrvMatrix>* stack = Stack(kind);
    if (stack == nullptr)
        ORV_THROW(OrvRendererException, "You tried to peek an unhandled matrix", kSource);
    return stack->Peek();
}

void OrvRenderer::PushMatrix(OrvTransMatrix kind)
{
    // The copy lands in the next slot, so the top itself can be its source.
    OrvMatrix& top = PeekMatrix(kind);
    Stack(kind)->Push(top);
}

void OrvRenderer::PushMatrix(OrvTransMatrix kind, const OrvMatrix& matrix)
{
    // Peeked first, so that an unhandled kind or an empty stack fails as
    // PushMatrix fails.
    PeekMatrix(kind);
    Stack(kind)->Push(matrix);
}

void OrvRenderer::PushIdentityMatrix(OrvTransMatrix kind)
{
    OrvTStack<OrvMatrix>* stack = Stack(kind);
    if (stack == nullptr)
        ORV_THROW(OrvRendererException, "You tried to push an unhandled matrix", kSource);
    stack->Push(OrvMatrix::CreateIdentity(4));
}

OrvMatrix OrvRenderer::PopMatrix(OrvTransMatrix kind)
{
    OrvTStack<OrvMatrix>* stack = Stack(kind);
    if (stack == nullptr)
        ORV_THROW(OrvRendererException, "You tried to pop an unhandled matrix", kSource);
    return stack->Pop();
}

void OrvRenderer::LoadMatrix(OrvTransMatrix kind, const OrvMatrix& matrix)
{
    PeekMatrix(kind) = matrix;
}

void OrvRenderer::LoadIdentityMatrix(OrvTransMatrix kind)
{
    OrvMatrix& top = PeekMatrix(kind);
    if (top.GetRowCount() != 4 || top.GetColumnCount() != 4)
        top = OrvMatrix::CreateIdentity(4);
    else
        top.SetIdentity();
}

void OrvRenderer::TranslateMatrix(OrvTransMatrix kind, const OrvVector3D& v)
{
    PeekMatrix(kind).Translate(v);
}

void OrvRenderer::ScaleMatrix(OrvTransMatrix kind, const OrvVector3D& v)
{
    PeekMatrix(kind).Scale(v);
}

void OrvRenderer::RotateMatrix(OrvTransMatrix kind, float degrees)
{
    PeekMatrix(kind).Rotate(degrees);
}

OrvMatrix OrvRenderer::GetModelViewTranslation()
{
    return PeekMatrix(TRANS_MATRIX_VIEW) * PeekMatrix(TRANS_MATRIX_MODEL);
}

void OrvRenderer::GetModelViewTranslation(OrvMatrix& result)
{
    result.SetProduct(PeekMatrix(TRANS_MATRIX_VIEW), PeekMatrix(TRANS_MATRIX_MODEL));
}

const OrvMatrix& OrvRenderer::ComputeModelView()
{
    GetModelViewTranslation(m_modelView);
    return m_modelView;
}

void OrvRenderer::DiscardMatrix(OrvTransMatrix kind)
{
    OrvTStack<OrvMatrix>* stack = Stack(kind);
    if (stack == nullptr)
        ORV_THROW(OrvRendererException, "You tried to pop an unhandled matrix", kSource);
    stack->Discard();
}
