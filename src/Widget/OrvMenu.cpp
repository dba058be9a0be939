#include "OrvMenu.h"

#include "OrvApplication.h"
#include "OrvButton.h"
#include "OrvButtonDesc.h"
#include "OrvColorMaterial.h"
#include "OrvGameAssetManager.h"
#include "OrvMenuDesc.h"
#include "OrvMesh.h"
#include "OrvSubMenuButton.h"
#include "OrvSubMenuButtonDesc.h"
#include "OrvTimer.h"
#include "OrvTimerManager.h"
#include "OrvVertex.h"

namespace
{
void ExitedTimerEnd(OrvTimer*, void* data)
{
    OrvMenu* menu = static_cast<OrvMenu*>(data);
    if (!menu->IsInUse())
        menu->Hide();
}
}  // namespace

OrvMenuDesc::OrvMenuDesc() : OrvWidgetDesc(), font(nullptr), fontSizeCoef(1.0f) {}

OrvMenu::OrvMenu() : OrvWidget(), m_font(nullptr), m_fontSizeCoef(1.0f), m_exitTimer(nullptr) {}

OrvMenu::~OrvMenu()
{
    OrvApplication* application = GetApplication();
    if (application != nullptr && application->GetTimerManager() != nullptr)
        application->GetTimerManager()->DeleteTimer(m_exitTimer);
}

void OrvMenu::Create(OrvMenuDesc* desc)
{
    OrvWidget::Create(desc);
    if (m_autoSize)
        ComputeOptimalSize();
    UseColorMaterial(OrvColor(0.0f, 0.0f, 0.0f, 0.0f));
    m_font = desc->font;
    m_fontSizeCoef = desc->fontSizeCoef;
    OrvApplication* application = GetApplication();
    if (application == nullptr || application->GetTimerManager() == nullptr)
        return;
    m_exitTimer = application->GetTimerManager()->AddTimer();
    m_exitTimer->SetEndCallBack(ExitedTimerEnd, this);
    m_exitTimer->SetTimeLimit(kExitDelay);
}

bool OrvMenu::IsSubMenu() const
{
    return dynamic_cast<const OrvSubMenuButton*>(m_parent) != nullptr;
}

void OrvMenu::CursorExit(OrvCursor* cursor)
{
    OrvWidget::CursorExit(cursor);
    // A menu of its own stays up; one opened beside a button closes itself.
    if (m_exitTimer != nullptr && IsSubMenu())
        m_exitTimer->Restart();
}

bool OrvMenu::IsInUse() const
{
    if (IsAnyCursorColliding())
        return true;
    for (const OrvGameAsset* child : m_children)
    {
        const OrvSubMenuButton* button = dynamic_cast<const OrvSubMenuButton*>(child);
        const OrvMenu* subMenu = button != nullptr ? button->GetSubMenu() : nullptr;
        if (subMenu != nullptr && subMenu->GetRender() && subMenu->IsInUse())
            return true;
    }
    return false;
}

void OrvMenu::Hide()
{
    SetRender(false, true);
    SetEnabled(false, true);
}

template <class B, class D>
B* OrvMenu::AddButton(const OrvUnicode& text, D& desc)
{
    desc.type = OrvUnicode("Button_") + text;
    desc.labelDesc.type = OrvUnicode("Label_") + text;
    desc.labelDesc.text = text;
    desc.labelDesc.align = FONT_ALIGN_CENTER;
    desc.labelDesc.font = m_font;
    desc.labelDesc.fontSizeCoef = m_fontSizeCoef;
    desc.render = m_render;
    desc.enabled = m_enabled;
    if (GetChildCount() > 0)
    {
        const OrvGameAsset* last = GetChild(GetChildCount() - 1);
        const OrvWidget* widget = dynamic_cast<const OrvWidget*>(last);
        desc.position.Set(0.0f, last->GetPosition().Y - (widget != nullptr ? widget->GetHeight() : 0.0f), 0.0f);
    }
    return m_manager->CreateGameAsset<B, D>(&desc);
}

OrvButton* OrvMenu::AddActionButton(const OrvUnicode& text, Callback callback, void* data)
{
    OrvButtonDesc desc;
    OrvButton* button = AddButton<OrvButton>(text, desc);
    button->SetPressedAndReleasedCallback(callback, data);
    button->GetMesh()->SetRenderBoundingBox(true);
    AddChild(button);
    if (m_autoSize)
        ComputeOptimalSize();
    return button;
}

OrvButton* OrvMenu::AddSubMenuButton(const OrvUnicode& text, OrvMenu* subMenu)
{
    if (subMenu != nullptr)
        subMenu->SetType(OrvUnicode("SubMenu_") + text);
    OrvSubMenuButtonDesc desc;
    desc.subMenu = subMenu;
    OrvButton* button = AddButton<OrvSubMenuButton>(text, desc);
    button->GetMesh()->SetRenderBoundingBox(true);
    AddChild(button);
    if (m_autoSize)
        ComputeOptimalSize();
    return button;
}

void OrvMenu::ClearButtons()
{
    DeleteAllChildren();
}

void OrvMenu::SetBackgroundColor(const OrvColor& color)
{
    if (OrvColorMaterial* material = GetColorMaterial())
        material->SetColor(color);
}

void OrvMenu::ComputeOptimalSize()
{
    if (m_mesh == nullptr)
        return;
    m_mesh->ClearVertices();
    OrvWidget* first = nullptr;
    OrvWidget* last = nullptr;
    float width = 0.0f;
    float height = 0.0f;
    for (OrvGameAsset* child : m_children)
        if (OrvWidget* button = dynamic_cast<OrvWidget*>(child))
        {
            first = first != nullptr ? first : button;
            last = button;
            width = button->GetWidth() > width ? button->GetWidth() : width;
            height = button->GetHeight() > height ? button->GetHeight() : height;
        }
    if (first == nullptr)
    {
        m_mesh->BuildBoundingVolumes();
        return;
    }
    for (OrvGameAsset* child : m_children)
        if (OrvWidget* button = dynamic_cast<OrvWidget*>(child))
            button->SetQuad(-width * 0.5f, -height * 0.5f, width * 0.5f, height * 0.5f);
    // The first button lies at the menu's origin, the last one below it: from
    // the top-left corner of the one to the bottom-right corner of the other.
    const OrvVector3D topLeft = first->GetMesh()->GetVertex(1)->GetPosition();
    const OrvVector3D bottomRight = last->GetMesh()->GetVertex(3)->GetPosition() + last->GetPosition();
    SetQuad(topLeft.X, bottomRight.Y, bottomRight.X, topLeft.Y);
}
