#include "OrvCursor.h"

#include <cmath>

#include "OrvApplication.h"
#include "OrvAxisAlignedBox.h"
#include "OrvCamera.h"
#include "OrvCursorDesc.h"
#include "OrvInputEvent.h"
#include "OrvMatrix.h"
#include "OrvMesh.h"
#include "OrvMouse.h"
#include "OrvRay.h"
#include "OrvRenderer.h"

OrvCursorDesc::OrvCursorDesc() : OrvWidgetDesc() {}

OrvCursor::OrvCursor() : OrvWidget() {}

OrvCursor::~OrvCursor() = default;

void OrvCursor::Create(OrvCursorDesc* desc)
{
    OrvWidget::Create(desc);
}

void OrvCursor::ProcessInputEvent(const OrvInputEvent& event)
{
    if (event.GetType() != INPUT_MOUSE_MOVED)
        return;
    const OrvMouse* mouse = dynamic_cast<const OrvMouse*>(event.GetDevice());
    const OrvRenderer* renderer = GetRenderer();
    if (mouse == nullptr || renderer == nullptr)
        return;
    // Window pixels run down from the top-left corner; the HUD's run up from
    // the viewport's lower-left corner.
    const float height = static_cast<float>(renderer->GetViewportHeight());
    SetPosition(OrvVector3D(mouse->GetX() - static_cast<float>(renderer->GetViewportOriginX()),
                            height - mouse->GetY() + static_cast<float>(renderer->GetViewportOriginY()), 0.0f));
}

OrvVector3D OrvCursor::GetHotSpot() const
{
    return m_position + OrvVector3D(-GetWidth() * 0.5f, GetHeight() * 0.5f, 0.0f);
}

bool OrvCursor::IsOver(OrvWidget* widget) const
{
    if (widget == nullptr || widget->GetMesh() == nullptr)
        return false;
    return widget->GetMesh()->GetBoundingBox()->Contains(GetHotSpot());
}

OrvTObjectArray<OrvGameAsset*> OrvCursor::ComputePerspectivePick(OrvGameAsset* root) const
{
    OrvTObjectArray<OrvGameAsset*> assets;
    OrvApplication* application = GetApplication();
    const OrvCamera* camera = application != nullptr ? application->GetWorldCamera() : nullptr;
    if (camera == nullptr || root == nullptr)
        return assets;
    const float halfWidth = static_cast<float>(camera->GetViewportWidth()) * 0.5f;
    const float halfHeight = static_cast<float>(camera->GetViewportHeight()) * 0.5f;
    const float nx = (m_position.X - halfWidth) / halfWidth;
    const float ny = (m_position.Y - halfHeight) / halfHeight;
    const float h = camera->GetZNear() * std::tan(camera->GetFOVY() * 0.5f * 0.017453292f);
    const float w = camera->GetAspectRatio() * h;
    const OrvRay ray(camera->GetPosition(), OrvVector3D(w * nx, h * ny, -camera->GetZNear()));
    OrvTObjectArray<OrvVector3D> points;
    RecursivePerspectivePick(assets, points, root, ray);
    return assets;
}

void OrvCursor::RecursivePerspectivePick(OrvTObjectArray<OrvGameAsset*>& assets, OrvTObjectArray<OrvVector3D>& points,
                                         OrvGameAsset* asset, const OrvRay& ray) const
{
    if (asset == nullptr)
        return;
    OrvVector3D hit;
    if (asset->GetMesh() != nullptr && ray.IsColliding(asset->GetMesh()->GetBoundingBox(), hit))
    {
        OrvApplication* application = GetApplication();
        const OrvCamera* camera = application != nullptr ? application->GetWorldCamera() : nullptr;
        OrvMatrix matrix = asset->GetCurrentTransformationMatrix();
        if (camera != nullptr)
            matrix.Translate(OrvVector3D(0.0f, 0.0f, 0.0f) - camera->GetPosition());
        hit.Transform(matrix, true);
        // After every point no farther away: equal distances keep their order.
        const float distance = (hit - ray.GetOrigine()).Length();
        unsigned int index = 0;
        while (index < points.GetCount() && !((points[index] - ray.GetOrigine()).Length() > distance))
            ++index;
        assets.Insert(index, asset);
        points.Insert(index, hit);
    }
    for (OrvGameAsset* child : asset->GetChildren())
        RecursivePerspectivePick(assets, points, child, ray);
}
