#ifndef ORV_MATERIAL_H
#define ORV_MATERIAL_H

#include "OrvTArray.h"

class OrvColor;
class OrvMaterialShelf;
class OrvPass;
class OrvRenderer;

/// How geometry is drawn: one or more passes (owned), each activated in turn
/// after the material has handed its own values to it. Materials are not
/// copied.
///
/// Ownership: a material has one owner at a time, whoever deletes it: the
/// shelf that made it, or the mesh it was handed to (which deletes it with
/// itself). A material made by a shelf takes itself off the shelf's list when
/// it is deleted, however that happens, so the shelf never lists a deleted
/// material and no caller needs to ask the shelf before deleting.
class OrvMaterial
{
public:
    explicit OrvMaterial(OrvRenderer* renderer);
    OrvMaterial(const OrvMaterial&) = delete;
    OrvMaterial& operator=(const OrvMaterial&) = delete;
    /// Deletes every pass; leaves the list of the shelf that made it.
    virtual ~OrvMaterial();

    /// Hands the material's values to pass `pass`; nothing in this base.
    virtual void SetPassParameters(unsigned int pass);

    /// The material takes ownership.
    void AddPass(OrvPass* pass);
    /// Null for an index past the end.
    OrvPass* GetPass(unsigned int index) const { return m_passes[index]; }
    unsigned int GetPassCount() const { return m_passes.GetSize(); }
    void DeleteAllPasses();
    /// SetPassParameters(pass), then that pass's Activate().
    void ActivatePass(unsigned int pass);

    OrvRenderer* GetRenderer() const { return m_renderer; }
    /// Asks the cache for the pass list (stage 0), then the first pass (1).
    void Prefetch(unsigned int stage) const;

protected:
    /// Adds a pass drawing with `shaderFile` (both programs), blended by the
    /// source alpha.
    void AddAlphaBlendedPass(OrvRenderer* renderer, const char* shaderFile);
    /// Hands `color` to pass 0 as "in_f4Color" (red, green, blue, alpha).
    void SetColorOnFirstPass(const OrvColor& color);

    OrvTArray<OrvPass> m_passes;
    OrvRenderer* m_renderer;

private:
    friend class OrvMaterialShelf;
    /// The shelf listing the material; null when none does (any more).
    OrvMaterialShelf* m_shelf = nullptr;
};

#endif
