#ifndef ORV_EFFECT_H
#define ORV_EFFECT_H

#include "OrvUnicode.h"

class OrvEffectManager;
class OrvFileManager;
typedef struct OrvCgProgramHandle* CGprogram;

/// A vertex and a fragment program compiled from source files found through
/// the file manager; entries "VSMain" and "FSMain". To declare an effect is to
/// compile and load its programs, to undeclare it to unload and destroy them.
/// An effect declared while no file manager can be reached waits (deferred)
/// until one of the deferred operations declares it.
class OrvEffect
{
public:
    /// Declared through the manager's renderer at once when `manager` is not null.
    OrvEffect(OrvEffectManager* manager, const OrvUnicode& vsPath, const OrvUnicode& fsPath);
    OrvEffect(const OrvEffect&) = delete;
    OrvEffect& operator=(const OrvEffect&) = delete;
    /// Undeclared through the manager's renderer when there is a manager.
    virtual ~OrvEffect();

    /// 1: declared (now or before); 2: deferred, no file manager reachable;
    /// 0: not declared. Compile errors throw OrvCgException.
    int Declare();
    /// Always true.
    bool UnDeclare();

    void DeferDeclaration(bool defer);
    /// Declares; the deferred bit goes when that worked, or when it failed
    /// and `keepWaiting` is false. True when declared.
    bool ExecuteDefferedDeclaration(bool keepWaiting);
    /// True at once when nothing waits; otherwise ExecuteDefferedDeclaration.
    bool MonitorDefferedDeclaration(bool keepWaiting);

    bool Declared() const { return (m_state & kDeclared) != 0; }
    bool DeferredDeclaration() const { return (m_state & kDeferred) != 0; }

    OrvEffectManager* GetEffectManager() const { return m_effectManager; }
    const OrvUnicode& GetVSPath() const { return m_vsPath; }
    const OrvUnicode& GetFSPath() const { return m_fsPath; }
    CGprogram GetVSProgram() const { return m_vsProgram; }
    CGprogram GetFSProgram() const { return m_fsProgram; }
    void SetVSProgram(CGprogram program) { m_vsProgram = program; }
    void SetFSProgram(CGprogram program) { m_fsProgram = program; }

private:
    friend class OrvEffectManager;

    static constexpr unsigned int kDeferred = 1u;
    static constexpr unsigned int kDeclared = 2u;

    OrvFileManager* ReachFileManager() const;
    void CompilePrograms(OrvFileManager* files);

    OrvEffectManager* m_effectManager;
    OrvUnicode m_vsPath;
    OrvUnicode m_fsPath;
    CGprogram m_vsProgram;
    CGprogram m_fsProgram;
    unsigned int m_state;
};

#endif
