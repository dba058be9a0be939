#ifndef ORV_OPENGL_RENDERER_H
#define ORV_OPENGL_RENDERER_H

#include <memory>

#include "OrvRenderer.h"
#include "OrvTexture.h"

struct OrvOpenGLRendererState;

/// The renderer on OpenGL: geometry drawn through the bound pair of shader
/// programs, blending and depth testing always on, two texture units. OpenGL's
/// own matrices are set only in Setup; the passes hand the engine's matrices to
/// the shaders. State already set (blend function, bound textures, their filter
/// and wrap, the shader programs and their parameters) is not set again.
///
/// Vertices are transformed on the CPU by the model-view matrix last handed to
/// the bound effect ("in_m44ModelView"), and collected into vertex arrays (see
/// OrvRenderer::SetBatching): the shaders see an identity model-view and
/// vertices already in view space, so that brackets drawn under different
/// model-views still share one draw call.
class OrvOpenGLRenderer : public OrvRenderer
{
public:
    explicit OrvOpenGLRenderer(OrvApplication* application);
    ~OrvOpenGLRenderer() override;

    /// Needs a current OpenGL 2.0 context (the window's); throws
    /// OrvRendererException without one.
    bool Setup(unsigned int x, unsigned int y, unsigned int width, unsigned int height) override;
    /// Also clears colour and depth.
    void PreRender() override;
    void PostRender() override;
    void Begin(OrvRenderMode mode) override;
    void End() override;
    void Vertex(OrvVertex* vertex) override;
    /// Binds the pass's programs, sets its blend function and both texture units
    /// with its filter and wrap.
    void ActivatePass(OrvPass* pass) override;
    void SetClearColor(const OrvColor& color) override;
    /// "in_m44ModelView" (a float4x4) becomes the effect's vertex transform;
    /// every other parameter as the base class sets it, unless it holds that
    /// value already.
    void SetEffectParameter(OrvEffect* effect, const char* name, void* value) override;
    void Flush() override;
    void Finish() override;
    void SetBatching(bool on) override;
    bool GetBatching() const override;
    /// Draw calls made since the renderer was made.
    unsigned long GetDrawCallCount() const;
    using OrvRenderer::SetTextureUnit;
    virtual void SetTextureUnit(OrvTextureUnit unit, OrvTexture* texture, MIPMAP_METHOD mipmap, WRAP_METHOD wrap);

private:
    /// Binds the pass's programs, blend function and textures.
    void ApplyPass(OrvPass* pass);

    /// The batch and what the renderer remembers of the state it set.
    std::unique_ptr<OrvOpenGLRendererState> m_state;
};

#endif
