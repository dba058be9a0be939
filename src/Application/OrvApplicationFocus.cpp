#include "OrvApplication.h"

// Focus as the window system reports it, turned into the application's
// hooks once a turn; the pointer hides while the window has the keyboard.

#include "OrvSDLFocus.h"

void OrvApplication::ReportFocusChanges()
{
    m_currentAppState = OrvSDLFocus::GetAppState();
    if (m_currentAppState == m_previousAppState)
        return;
    // Every pair is reported on any change, also for bits that did not change.
    if (m_currentAppState & OrvSDLFocus::kMouseFocus)
        OnGainedMouseCoverage();
    else
        OnLostMouseCoverage();
    if (m_currentAppState & OrvSDLFocus::kInputFocus)
        OnGainedInputFocus();
    else
        OnLostInputFocus();
    if (m_currentAppState & OrvSDLFocus::kActive)
        OnBecameActive();
    else
        OnBecameInactive();
    m_previousAppState = m_currentAppState;
}

void OrvApplication::OnGainedMouseCoverage() {}

void OrvApplication::OnLostMouseCoverage() {}

void OrvApplication::OnGainedInputFocus()
{
    OrvSDLFocus::ShowPointer(false);
}

void OrvApplication::OnLostInputFocus()
{
    OrvSDLFocus::ShowPointer(true);
}

void OrvApplication::OnBecameActive() {}

void OrvApplication::OnBecameInactive() {}
