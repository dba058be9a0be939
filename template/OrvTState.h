#ifndef ORV_T_STATE_H
#define ORV_T_STATE_H

/// One state of an OrvTStateMachine<T>: entered, executed once a frame while
/// current, exited.
template <class T>
class OrvTState
{
public:
    virtual ~OrvTState() {}
    virtual void Enter() = 0;
    virtual void Execute(float seconds) = 0;
    virtual void Exit() = 0;
};

#endif
