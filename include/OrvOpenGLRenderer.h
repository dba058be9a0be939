#ifndef ORV_OPENGL_RENDERER_H
#define ORV_OPENGL_RENDERER_H

#include "OrvRenderer.h"
#include "OrvTexture.h"

// The renderer on OpenGL: immediate-mode geometry drawn through the bound pair
// of shader programs, blending and depth testing always on, two texture units.
// OpenGL's own matrices are set only in Setup; the passes hand the engine's
// matrices to the shaders. State already set (blend function, bound textures,
// their filter and wrap, the shader programs and their parameters) is not set
// again.
class OrvOpenGLRenderer : public OrvRenderer
{
public:
    explicit OrvOpenGLRenderer(OrvApplication* application);
    ~OrvOpenGLRenderer() override;

    // Needs a current OpenGL 2.0 context (the window's); throws
    // OrvRendererException without one.
    bool Setup(unsigned int x, unsigned int y, unsigned int width, unsigned int height) override;
    // Also clears colour and depth.
    void PreRender() override;
    void PostRender() override;
    void Begin(OrvRenderMode mode) override;
    void End() override;
    void Vertex(OrvVertex* vertex) override;
    // Binds the pass's programs, sets its blend function and both texture units
    // with its filter and wrap.
    void ActivatePass(OrvPass* pass) override;
    void SetClearColor(const OrvColor& color) override;
    using OrvRenderer::SetTextureUnit;
    virtual void SetTextureUnit(OrvTextureUnit unit, OrvTexture* texture, MIPMAP_METHOD mipmap, WRAP_METHOD wrap);
};

#endif
