#ifndef ORV_GL_STATE_CACHE_H
#define ORV_GL_STATE_CACHE_H

// Private to the OpenGL renderer; its tests and benchmark reach it through a
// private include path. What the engine last set in the current GL context:
// the blend function, the active texture unit, the texture bound on each of
// the two units and the filter and wrap of each texture object. Calls that
// would set what is already set are skipped. The renderer forgets everything
// at each set-up (a new GL context); textures report their names' birth and
// death. One GL context and one thread at a time, like the shader runtime.
class OrvGLStateCache
{
public:
    // GL calls made through the cache (skipped ones are not counted).
    struct Stats
    {
        unsigned long blendFuncCalls;
        unsigned long activeTextureCalls;
        unsigned long bindTextureCalls;
        unsigned long texParameterCalls;
    };

    // Nothing is known any more: the next call of each kind reaches GL.
    static void Invalidate();

    static void BlendFunc(unsigned int source, unsigned int destination);
    // Texture `name` bound on unit `unit` (0 or 1) with that filter (GL_NEAREST
    // or GL_LINEAR) and wrap (GL_REPEAT or GL_CLAMP) in both directions. The
    // unit is selected only when something must change.
    static void SetTextureUnit(unsigned int unit, unsigned int name, int filter, int wrap);
    // Binds `name` on whichever unit is active.
    static void BindTextureOnActiveUnit(unsigned int name);
    // A texture name was just generated or deleted: whatever was known of it
    // no longer holds, and units it was bound to are back on texture 0.
    static void ForgetTexture(unsigned int name);

    // Off: every call reaches GL (for measuring what the cache saves).
    static void SetCaching(bool enabled);
    static bool GetCaching();
    static const Stats& GetStats();
    static void ResetStats();
};

#endif
