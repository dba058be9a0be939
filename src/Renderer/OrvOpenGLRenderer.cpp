#include "OrvOpenGLRenderer.h"

#include <GL/gl.h>

#include "OrvColor.h"
#include "OrvEffect.h"
#include "OrvGLStateCache.h"
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
}  // namespace

OrvOpenGLRenderer::OrvOpenGLRenderer(OrvApplication* application) : OrvRenderer(application)
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
    if (!OrvGL::LoadEntryPoints())
        ORV_THROW(OrvRendererException, "The renderer needs a current OpenGL 2.0 context", kSource);
    OrvGLStateCache::Invalidate();

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
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void OrvOpenGLRenderer::PostRender()
{
    OrvRenderer::PostRender();
}

void OrvOpenGLRenderer::Begin(OrvRenderMode mode)
{
    OrvRenderer::Begin(mode);
    const unsigned int index = static_cast<unsigned int>(mode);
    if (index >= kPrimitiveCount)
        ORV_THROW(OrvRendererException, "You tried to use an unsupported render mode", kSource);
    glBegin(kPrimitives[index]);
}

void OrvOpenGLRenderer::End()
{
    OrvRenderer::End();
    glEnd();
}

void OrvOpenGLRenderer::Vertex(OrvVertex* vertex)
{
    OrvRenderer::Vertex(vertex);
    const OrvVector2D& uv = vertex->GetUV();
    const OrvVector3D& position = vertex->GetPosition();
    glTexCoord2f(uv.X, uv.Y);
    glVertex3f(position.X, position.Y, position.Z);
}

void OrvOpenGLRenderer::ActivatePass(OrvPass* pass)
{
    OrvRenderer::ActivatePass(pass);
    OrvEffect* effect = pass->GetEffect();
    if (effect == nullptr)
        ORV_THROW(OrvRendererException, "You tried to activate a pass that has no effect", kSource);
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
