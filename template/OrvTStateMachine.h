#ifndef ORV_T_STATE_MACHINE_H
#define ORV_T_STATE_MACHINE_H

#include "OrvException.h"
#include "OrvTArray.h"
#include "OrvTState.h"

/// Runs a behaviour as a sequence of states, plus an optional global state that
/// runs every frame before the current one. A requested change happens at the
/// next Update. On each change the state two steps back is destroyed (and
/// taken off the list when registered), unless it is the one being entered,
/// so a game can switch back to the previous state.
///
/// The machine owns the states registered with it and destroys them with
/// itself. A global state, and a current or requested state that was never
/// registered, belong to the game: a global state may serve several machines.
/// A state two steps back that is also the global or the current state is
/// still in use and is not destroyed.
template <class T>
class OrvTStateMachine
{
public:
    OrvTStateMachine() : m_current(nullptr), m_global(nullptr), m_previous(nullptr), m_next(nullptr) {}
    OrvTStateMachine(const OrvTStateMachine&) = delete;
    OrvTStateMachine& operator=(const OrvTStateMachine&) = delete;

    virtual ~OrvTStateMachine() { m_states.DeleteAll(); }

    /// Hands a state to the machine (once). Should the list not grow, the
    /// state is destroyed and OrvException thrown.
    void RegisterState(OrvTState<T>* state)
    {
        if (state == nullptr || m_states.Find(state) >= 0)
            return;
        ORV_ADD_OWNED(m_states, state, OrvException, "Not enough memory for another state", "template/OrvTStateMachine");
    }
    /// The change happens at the next Update.
    void RequestState(OrvTState<T>* state) { m_next = state; }
    void SetGlobalState(OrvTState<T>* state) { m_global = state; }

    OrvTState<T>* GetCurrentState() const { return m_current; }
    OrvTState<T>* GetGlobalState() const { return m_global; }
    OrvTState<T>* GetPreviousState() const { return m_previous; }
    OrvTState<T>* GetNextState() const { return m_next; }
    unsigned int GetStateCount() const { return m_states.GetSize(); }

    /// The machine's turn: global state, the pending change, current state. A
    /// change requested by the global state takes effect in the same turn.
    void Update(float seconds)
    {
        if (m_global != nullptr)
            m_global->Execute(seconds);
        if (m_next != nullptr)
        {
            OrvTState<T>* entering = m_next;
            m_next = nullptr;
            if (m_current != nullptr)
                m_current->Exit();
            if (m_previous != nullptr && m_previous != entering)
            {
                OrvTState<T>* dropped = m_previous;
                m_states.Remove(dropped);
                m_previous = nullptr;
                if (dropped != m_global && dropped != m_current)
                    delete dropped;
            }
            m_previous = m_current;
            m_current = entering;
            m_current->Enter();
        }
        if (m_current != nullptr)
            m_current->Execute(seconds);
    }

private:
    OrvTState<T>* m_current;
    OrvTState<T>* m_global;
    OrvTState<T>* m_previous;
    OrvTState<T>* m_next;
    OrvTArray<OrvTState<T>> m_states;
};

#endif
