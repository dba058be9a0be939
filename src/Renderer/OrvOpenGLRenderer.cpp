#include "OrvOpenGLRenderer.h"

#include <GL/gl.h>

#include <cstring>

#include "OrvColor.h"
#include "OrvEffect.h"
#include "OrvGLEntryPoints.h"
#include "OrvGLStateCache.h"
#include "OrvOpenGLRendererState.h"
#include "OrvOpenGLTexture.h"
#include "OrvPass.h"
#include "OrvRendererException.h"
#include "OrvShaderRuntime.h"
#include "OrvVertex.h"

namespace
{
const char* const kSource = "src/Renderer/OrvOpenGLRenderer";

const GLenum kBlendFactors[] = {GL_ZERO,      GL_ONE,           GL_SRC_COLOR,          GL_ONE_MINUS_SRC_COLOR,
                                GL_DST_COLOR, GL_ONE_MINUS_DST_COLOR, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA,
                                GL_DST_ALPHA, GL_ONE_MINUS_DST_ALPHA};
const unsigned int kBlendFactorCount = sizeof(kBlendFactors) / sizeof(kBlendFactors[0]);

const GLenum kPrimitives[] = {GL_LINES, GL_LINE_STRIP, GL_LINE_LOOP, GL_QUADS};
const unsigned int kPrimitiveCount = sizeof(kPrimitives) / sizeof(kPrimitives[0]);

// The name of the model-view parameter that passes hand to their effects.
const char* const kModelViewName = "in_m44ModelView";
}  // namespace

OrvOpenGLRenderer::OrvOpenGLRenderer(OrvApplication* application)
    : OrvRenderer(application), m_state(new OrvOpenGLRendererState())
{
    m_rendererType = 0;
}

OrvOpenGLRenderer::~OrvOpenGLRenderer() = default;

bool OrvOpenGLRenderer::Setup(unsigned int x, unsigned int y, unsigned int width, unsigned int height)
{
    if (!OrvRenderer::Setup(x, y, width, height))
        return false;
    // The entry points are fetched anew each time: the context may have been
    // replaced by a video mode change, and with it every piece of GL state.
    // Geometry still waiting is drawn first, under the state it was sent with.
    OrvGLBatch::StateChanging();
    if (!OrvGL::LoadEntryPoints())
        ORV_THROW(OrvRendererException, "The renderer needs a current OpenGL 2.0 context", kSource);
    OrvGLStateCache::Invalidate();
    m_state->batch.MakeCurrent();

    glViewport(static_cast<GLint>(x), static_cast<GLint>(y), static_cast<GLsizei>(width),
               static_cast<GLsizei>(height));
    glEnable(GL_BLEND);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_DEPTH_TEST);
    glClearDepth(1.0);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glOrtho(0.0, static_cast<GLdouble>(width), 0.0, static_cast<GLdouble>(height), -1.0, 1.0);
    glLineWidth(4.0f);
    return true;
}

void OrvOpenGLRenderer::PreRender()
{
    OrvRenderer::PreRender();
    m_state->batch.Flush();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void OrvOpenGLRenderer::PostRender()
{
    OrvRenderer::PostRender();
    m_state->batch.Flush();
}

void OrvOpenGLRenderer::Begin(OrvRenderMode mode)
{
    m_state->bracketOpen = false;
    OrvRenderer::Begin(mode);
    const unsigned int index = static_cast<unsigned int>(mode);
    if (index >= kPrimitiveCount)
        ORV_THROW(OrvRendererException, "You tried to use an unsupported render mode", kSource);
    m_state->batch.Begin(kPrimitives[index]);
    m_state->bracketOpen = true;
}

void OrvOpenGLRenderer::End()
{
    OrvRenderer::End();
    if (m_state->bracketOpen)
        m_state->batch.End();
    m_state->bracketOpen = false;
}

void OrvOpenGLRenderer::Vertex(OrvVertex* vertex)
{
    // The base only checks the protocol.
    if (!m_initialized || !m_rendering)
        OrvRenderer::Vertex(vertex);
    // After a Begin refused for its mode, vertices go nowhere.
    if (!m_state->bracketOpen)
        return;
    const OrvVector3D& p = vertex->GetPosition();
    const OrvVector2D& uv = vertex->GetUV();
    const float* m = m_state->transform;
    m_state->batch.Add(m[0] * p.X + m[4] * p.Y + m[8] * p.Z + m[12], m[1] * p.X + m[5] * p.Y + m[9] * p.Z + m[13],
                 m[2] * p.X + m[6] * p.Y + m[10] * p.Z + m[14], m[3] * p.X + m[7] * p.Y + m[11] * p.Z + m[15], uv.X,
                 uv.Y);
}

void OrvOpenGLRenderer::ActivatePass(OrvPass* pass)
{
    OrvRenderer::ActivatePass(pass);
    OrvEffect* effect = pass->GetEffect();
    if (effect == nullptr)
        ORV_THROW(OrvRendererException, "You tried to activate a pass that has no effect", kSource);
    OrvOpenGLRendererState& state = *m_state;
    state.transform = state.transforms.Of(effect, state.transform);
    // The same programs, blending and textures as the pass activated last,
    // and nothing has touched GL state since: it all holds already. (A
    // texture's new name or contents, a bind by someone else, a new context
    // all count as changes.) Thousands of sprites sharing one look pay this
    // comparison only.
    const OrvGLPassState wanted = OrvGLPassState::Of(*pass);
    const bool caching = OrvGLStateCache::GetCaching() && OrvShaderRuntimeGetCaching();
    if (caching && state.StateIsOurs() && state.passEra == state.era && wanted == state.pass)
        return;
    ApplyPass(pass);
    state.pass = wanted;
    state.passEra = state.era;
    state.NoteOwnChanges();
}

void OrvOpenGLRenderer::ApplyPass(OrvPass* pass)
{
    OrvEffect* effect = pass->GetEffect();
    cgGLEnableProfile(CG_PROFILE_ARBVP1);
    cgGLBindProgram(effect->GetVSProgram());
    cgGLEnableProfile(CG_PROFILE_ARBFP1);
    cgGLBindProgram(effect->GetFSProgram());

    const unsigned int source = static_cast<unsigned int>(pass->GetSrcBlendFactor());
    const unsigned int destination = static_cast<unsigned int>(pass->GetDstBlendFactor());
    if (source >= kBlendFactorCount)
        ORV_THROW(OrvRendererException, "You tried to set an invalid source blend factor", kSource);
    if (destination >= kBlendFactorCount)
        ORV_THROW(OrvRendererException, "You tried to set an invalid destination blend factor", kSource);
    OrvGLStateCache::BlendFunc(kBlendFactors[source], kBlendFactors[destination]);

    SetTextureUnit(TEXTURE_UNIT_0, pass->GetTextureUnit(TEXTURE_UNIT_0), pass->GetMipMapMethod(),
                   pass->GetWrapMethod());
    SetTextureUnit(TEXTURE_UNIT_1, pass->GetTextureUnit(TEXTURE_UNIT_1), pass->GetMipMapMethod(),
                   pass->GetWrapMethod());
}

void OrvOpenGLRenderer::SetTextureUnit(OrvTextureUnit unit, OrvTexture* texture, MIPMAP_METHOD mipmap,
                                       WRAP_METHOD wrap)
{
    if (static_cast<unsigned int>(unit) > 1)
        ORV_THROW(OrvRendererException, "You tried to set an invalid texture unit", kSource);
    OrvRenderer::SetTextureUnit(unit, texture);
    // Only OpenGL textures have a name to bind; anything else leaves the unit empty.
    const OrvOpenGLTexture* glTexture = dynamic_cast<const OrvOpenGLTexture*>(texture);
    unsigned int name = glTexture != nullptr ? glTexture->GetOpenGLName() : 0;
    if (name == OrvOpenGLTexture::kNoName)
        name = 0;
    OrvGLStateCache::SetTextureUnit(static_cast<unsigned int>(unit), name, mipmap == 0 ? GL_NEAREST : GL_LINEAR,
                                    wrap == 0 ? GL_REPEAT : GL_CLAMP);
}

void OrvOpenGLRenderer::SetClearColor(const OrvColor& color)
{
    glClearColor(color.GetRed(), color.GetGreen(), color.GetBlue(), color.GetAlpha());
}

void OrvOpenGLRenderer::SetEffectParameter(OrvEffect* effect, const char* name, void* value)
{
    // Refusals (not initialised, inside a bracket, no such parameter) come
    // from the base operation.
    if (!m_initialized || m_rendering || effect == nullptr || name == nullptr || !effect->Declared())
    {
        OrvRenderer::SetEffectParameter(effect, name, value);
        return;
    }
    const CGprogram vs = effect->GetVSProgram();
    const CGprogram fs = effect->GetFSProgram();
    OrvOpenGLRendererState& state = *m_state;
    OrvEffectParameterCache::Entry* entry = state.parameters.Find(effect, vs, fs, name);
    if (entry == nullptr)
    {
        const CGparameter parameter = FindEffectParameter(effect, name);
        const CGtype type = cgGetParameterType(parameter);
        entry = &state.parameters.Store(effect, vs, fs, name, parameter, type,
                                        type == CG_FLOAT4x4 && std::strcmp(name, kModelViewName) == 0);
    }
    if (entry->modelView)
    {
        // The shaders keep an identity; the vertices take the transform.
        if (!entry->identitySet)
        {
            state.StateIsOurs();
            cgSetMatrixParameterfc(entry->parameter, OrvEffectTransforms::kIdentity);
            entry->identitySet = true;
            state.NoteOwnChanges();
        }
        std::memcpy(state.transforms.Of(effect, state.transform), static_cast<const OrvMatrix*>(value)->GetValues(),
                    sizeof(OrvEffectTransforms::kIdentity));
        return;
    }
    const void* data = value;
    std::size_t bytes = 0;
    switch (entry->type)
    {
    case CG_FLOAT: bytes = sizeof(float); break;
    case CG_FLOAT4: bytes = 4 * sizeof(float); break;
    case CG_FLOAT4x4:
        data = static_cast<const OrvMatrix*>(value)->GetValues();
        bytes = 16 * sizeof(float);
        break;
    case CG_INT: bytes = sizeof(int); break;
    default: break;  // refused below
    }
    // The value this entry set last, and only the renderer changed GL state
    // or shader parameters since: it holds already.
    if (state.StateIsOurs() && bytes != 0 && entry->valueEra == state.era && OrvShaderRuntimeGetCaching() &&
        std::memcmp(entry->value, data, bytes) == 0)
        return;
    SetParameterValue(entry->parameter, value);
    std::memcpy(entry->value, data, bytes);
    entry->valueEra = state.era;
    state.NoteOwnChanges();
}

void OrvOpenGLRenderer::Flush()
{
    m_state->batch.Flush();
}

void OrvOpenGLRenderer::Finish()
{
    Flush();
    glFinish();
}

void OrvOpenGLRenderer::SetBatching(bool on)
{
    m_state->batch.SetDeferring(on);
}

bool OrvOpenGLRenderer::GetBatching() const
{
    return m_state->batch.GetDeferring();
}

unsigned long OrvOpenGLRenderer::GetDrawCallCount() const
{
    return m_state->batch.GetDrawCalls();
}
