#ifndef ORV_TEXTURE_METHOD_H
#define ORV_TEXTURE_METHOD_H

// Private to the engine: the one rule of the filter and wrap setters of
// textures and passes. MIPMAP_METHOD and WRAP_METHOD hold any int; only their
// two named values, 0 and 1, are taken.
namespace OrvTextureMethod
{
// Stores `value` in `target` and returns true for 0 or 1; false, leaving
// `target` as it was, for anything else.
template <typename Method>
bool Assign(Method& target, Method value)
{
    if (static_cast<unsigned int>(value) > 1)
        return false;
    target = value;
    return true;
}
}  // namespace OrvTextureMethod

#endif
