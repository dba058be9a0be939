#ifndef ORV_RENDERER_H
#define ORV_RENDERER_H

#include "OrvMatrix.h"
#include "OrvTStack.h"

class OrvApplication;
class OrvColor;
class OrvColorMaterial;
class OrvEffect;
class OrvEffectManager;
class OrvPass;
class OrvTexture;
class OrvVector3D;
class OrvVertex;
typedef struct OrvCgContextHandle* CGcontext;
typedef struct OrvCgParameterHandle* CGparameter;

// These enumerations hold any int: the operations that take them refuse
// values outside their lists.

/// The three transform stacks.
enum OrvTransMatrix : int
{
    TRANS_MATRIX_MODEL = 0,
    TRANS_MATRIX_VIEW = 1,
    TRANS_MATRIX_PROJECTION = 2
};

enum OrvRenderMode : int
{
    RENDER_MODE_LINES = 0,
    RENDER_MODE_LINE_STRIP = 1,
    RENDER_MODE_LINE_LOOP = 2,
    RENDER_MODE_QUADS = 3
};

enum OrvBlendFactor : int
{
    BLEND_FACTOR_ZERO = 0,
    BLEND_FACTOR_ONE = 1,
    BLEND_FACTOR_SRC_COLOR = 2,
    BLEND_FACTOR_ONE_MINUS_SRC_COLOR = 3,
    BLEND_FACTOR_DST_COLOR = 4,
    BLEND_FACTOR_ONE_MINUS_DST_COLOR = 5,
    BLEND_FACTOR_SRC_ALPHA = 6,
    BLEND_FACTOR_ONE_MINUS_SRC_ALPHA = 7,
    BLEND_FACTOR_DST_ALPHA = 8,
    BLEND_FACTOR_ONE_MINUS_DST_ALPHA = 9
};

/// A pass has exactly these two texture units.
enum OrvTextureUnit : int
{
    TEXTURE_UNIT_0 = 0,
    TEXTURE_UNIT_1 = 1
};

/// Registered as the shader runtime's error callback: throws OrvCgException
/// with the runtime's text for the pending error.
void CgErrorCallback();

/// The abstract renderer: the model, view and projection stacks (15 matrices
/// each), the drawing protocol (initialised; inside Begin/End), the shader
/// context and the effect manager, and a colour material of its own for lines.
/// Every protocol refusal throws OrvRendererException before any state changes.
class OrvRenderer
{
public:
    explicit OrvRenderer(OrvApplication* application);
    OrvRenderer(const OrvRenderer&) = delete;
    OrvRenderer& operator=(const OrvRenderer&) = delete;
    /// Deletes the line material and the effect manager (and with it every
    /// effect), then the shader context.
    virtual ~OrvRenderer();

    /// Initialises on first use and stores the viewport.
    virtual bool Setup(unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    /// The model top becomes the identity.
    virtual void PreRender();
    virtual void PostRender();
    virtual void Begin(OrvRenderMode mode);
    virtual void End();
    virtual void Vertex(OrvVertex* vertex);
    virtual void ActivatePass(OrvPass* pass);
    virtual void DeclareEffect(OrvEffect* effect);
    virtual void UndeclareEffect(OrvEffect* effect);
    /// `value` points to a float, four floats, an OrvMatrix or an int, as the
    /// parameter's type says.
    virtual void SetEffectParameter(OrvEffect* effect, const char* name, void* value);
    virtual void SetTextureUnit(OrvTextureUnit unit, OrvTexture* texture);
    virtual void SetClearColor(const OrvColor& color) = 0;

    /// Batching: while it is on, the geometry sent between Begin and End is
    /// collected and drawn later, many brackets in one draw call: when
    /// something it depends on changes (the shader programs and their
    /// parameters, the blend function, a texture), when the collection is
    /// full, at the end of each of the application's render passes and
    /// around its hooks, before a frame is presented or cleared, and at
    /// Flush. While it is off, each End draws at once. The application turns
    /// it on for its render passes; it is off otherwise.
    /// Draws whatever was collected: call it before reading pixels or
    /// drawing with OpenGL directly in the middle of a pass. Nothing in this base.
    virtual void Flush();
    /// Flush, then waits until the graphics driver has drawn everything it
    /// was given. Only Flush in this base.
    virtual void Finish();
    virtual void SetBatching(bool on);
    /// Always false in this base.
    virtual bool GetBatching() const;

    /// The four numbers are not used.
    bool Init(unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    void CreateContext();
    void ChangeContext();
    void CreateEffectManager();
    void DestroyEffectManager();
    void CreateColorMaterial();
    void DestroyColorMaterial();

    void RenderLine(const OrvVector3D& from, const OrvVector3D& to, const OrvColor& color);

    OrvMatrix& PeekMatrix(OrvTransMatrix kind);
    void PushMatrix(OrvTransMatrix kind);
    void PushIdentityMatrix(OrvTransMatrix kind);
    /// PushMatrix then LoadMatrix(kind, matrix), with one copy; fails as
    /// PushMatrix does.
    void PushMatrix(OrvTransMatrix kind, const OrvMatrix& matrix);
    OrvMatrix PopMatrix(OrvTransMatrix kind);
    void LoadMatrix(OrvTransMatrix kind, const OrvMatrix& matrix);
    void LoadIdentityMatrix(OrvTransMatrix kind);
    void TranslateMatrix(OrvTransMatrix kind, const OrvVector3D& v);
    void ScaleMatrix(OrvTransMatrix kind, const OrvVector3D& v);
    void RotateMatrix(OrvTransMatrix kind, float degrees);
    /// View top × model top.
    OrvMatrix GetModelViewTranslation();
    /// The same into `result`, without allocating.
    void GetModelViewTranslation(OrvMatrix& result);
    /// The same into a matrix of the renderer's own, valid until the next call:
    /// what a pass hands its shaders on activation.
    const OrvMatrix& ComputeModelView();
    /// PopMatrix without handing the matrix back (and so without copying it);
    /// fails as PopMatrix does.
    void DiscardMatrix(OrvTransMatrix kind);

    OrvApplication* GetApplication() const { return m_application; }
    OrvEffectManager* GetEffectManager() const { return m_effectManager; }
    CGcontext GetCGContext() const { return m_cgContext; }
    int GetRendererType() const { return m_rendererType; }
    unsigned int GetViewportOriginX() const { return m_viewportX; }
    unsigned int GetViewportOriginY() const { return m_viewportY; }
    unsigned int GetViewportWidth() const { return m_viewportWidth; }
    unsigned int GetViewportHeight() const { return m_viewportHeight; }
    bool GetInitialized() const { return m_initialized; }
    bool GetRendering() const { return m_rendering; }

protected:
    /// Throws the "before initialising" message unless initialised.
    void RequireInitialized(const char* message) const;
    /// Throws the "while rendering" message while inside Begin/End.
    void RequireNotRendering(const char* message) const;
    /// The parameter of that name in the effect's vertex program, else in its
    /// fragment program; throws OrvRendererException when neither has it.
    CGparameter FindEffectParameter(OrvEffect* effect, const char* name) const;
    /// Hands `value` to the parameter as its type says (SetEffectParameter's
    /// table); throws OrvRendererException for another type.
    void SetParameterValue(CGparameter parameter, const void* value);

    bool m_cgContextCreated;
    OrvApplication* m_application;
    /// 0: OpenGL.
    int m_rendererType;
    bool m_initialized;
    bool m_rendering;
    CGcontext m_cgContext;

private:
    /// The stack of that kind, or null for an unhandled kind.
    OrvTStack<OrvMatrix>* Stack(OrvTransMatrix kind);
    OrvTStack<OrvMatrix> m_modelStack;
    OrvTStack<OrvMatrix> m_viewStack;
    OrvTStack<OrvMatrix> m_projectionStack;
    OrvMatrix m_modelView;
    OrvColorMaterial* m_colorMaterial;
    OrvEffectManager* m_effectManager;
    unsigned int m_viewportX;
    unsigned int m_viewportY;
    unsigned int m_viewportWidth;
    unsigned int m_viewportHeight;
};

#endif
