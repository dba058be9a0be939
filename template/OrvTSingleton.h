#ifndef ORV_T_SINGLETON_H
#define ORV_T_SINGLETON_H

/// Marks a class that exists once per application. It enforces nothing: the
/// application creates the one instance.
template <class T>
class OrvTSingleton
{
};

#endif
