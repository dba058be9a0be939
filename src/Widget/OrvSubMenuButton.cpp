#include "OrvSubMenuButton.h"

#include "OrvApplication.h"
#include "OrvMenu.h"
#include "OrvSubMenuButtonDesc.h"
#include "OrvTimer.h"
#include "OrvTimerManager.h"

namespace
{
void EnteredTimerEnd(OrvTimer*, void* data)
{
    OrvSubMenuButton* button = static_cast<OrvSubMenuButton*>(data);
    if (button->IsAnyCursorColliding())
        button->OpenSubMenu();
}

void ExitedTimerEnd(OrvTimer*, void* data)
{
    OrvSubMenuButton* button = static_cast<OrvSubMenuButton*>(data);
    const OrvMenu* menu = button->GetSubMenu();
    if (menu != nullptr && !menu->IsInUse())
        button->CloseSubMenu();
}
}  // namespace

OrvSubMenuButtonDesc::OrvSubMenuButtonDesc() : OrvButtonDesc(), subMenu(nullptr) {}

OrvSubMenuButton::OrvSubMenuButton() : OrvButton(), m_enteredTimer(nullptr), m_exitedTimer(nullptr) {}

OrvSubMenuButton::~OrvSubMenuButton()
{
    // A timer left running would call back into a button that is gone.
    OrvApplication* application = GetApplication();
    OrvTimerManager* timers = application != nullptr ? application->GetTimerManager() : nullptr;
    if (timers != nullptr)
    {
        timers->DeleteTimer(m_enteredTimer);
        timers->DeleteTimer(m_exitedTimer);
    }
}

void OrvSubMenuButton::Create(OrvSubMenuButtonDesc* desc)
{
    OrvButton::Create(desc);
    try
    {
        AddChild(desc->subMenu);
    }
    catch (...)
    {
        DropLabel();
        throw;
    }
    PlaceSubMenu();
    CloseSubMenu();
    OrvApplication* application = GetApplication();
    OrvTimerManager* timers = application != nullptr ? application->GetTimerManager() : nullptr;
    if (timers == nullptr)
        return;
    m_enteredTimer = timers->AddTimer();
    m_enteredTimer->SetEndCallBack(EnteredTimerEnd, this);
    m_enteredTimer->SetTimeLimit(kDelay);
    m_exitedTimer = timers->AddTimer();
    m_exitedTimer->SetEndCallBack(ExitedTimerEnd, this);
    m_exitedTimer->SetTimeLimit(kDelay);
}

OrvMenu* OrvSubMenuButton::GetSubMenu() const
{
    return GetChildCount() > 1 ? dynamic_cast<OrvMenu*>(GetChild(1)) : nullptr;
}

void OrvSubMenuButton::PlaceSubMenu()
{
    OrvGameAsset* menu = GetChild(1);
    const OrvWidget* widget = dynamic_cast<const OrvWidget*>(menu);
    const float menuWidth = widget != nullptr ? widget->GetWidth() : 0.0f;
    menu->SetPosition(OrvVector3D(GetWidth() * 0.5f + menuWidth * 0.5f, 0.0f, -0.01f));
}

void OrvSubMenuButton::OpenSubMenu()
{
    PlaceSubMenu();
    OrvGameAsset* menu = GetChild(1);
    menu->SetRender(true, true);
    menu->SetEnabled(true, true);
}

void OrvSubMenuButton::CloseSubMenu()
{
    OrvGameAsset* menu = GetChild(1);
    menu->SetRender(false, true);
    menu->SetEnabled(false, true);
}

void OrvSubMenuButton::CursorEntered(OrvCursor* cursor)
{
    OrvButton::CursorEntered(cursor);
    if (m_enteredTimer != nullptr)
        m_enteredTimer->Restart();
}

void OrvSubMenuButton::CursorExit(OrvCursor* cursor)
{
    OrvButton::CursorExit(cursor);
    if (m_exitedTimer != nullptr)
        m_exitedTimer->Restart();
}

void OrvSubMenuButton::CursorPressedAndReleased(OrvCursor* cursor)
{
    OrvButton::CursorPressedAndReleased(cursor);
    OpenSubMenu();
}
