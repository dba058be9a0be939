#include "OrvButton.h"

#include "OrvButtonDesc.h"
#include "OrvColorMaterial.h"
#include "OrvGameAssetManager.h"
#include "OrvLabel.h"
#include "OrvMesh.h"
#include "OrvVertex.h"

OrvButtonDesc::OrvButtonDesc()
    : OrvWidgetDesc(), labelDesc(), backgroundNormalColor(1.0f, 1.0f, 1.0f, 0.0f),
      backgroundHoverColor(1.0f, 1.0f, 1.0f, 0.0f), backgroundPressedColor(1.0f, 1.0f, 1.0f, 0.0f),
      textNormalColor(1.0f, 1.0f, 1.0f, 1.0f), textHoverColor(0.5f, 0.5f, 0.5f, 1.0f),
      textPressedColor(0.7f, 0.7f, 0.7f, 1.0f)
{
}

OrvButton::OrvButton() : OrvWidget(), m_label(nullptr) {}

OrvButton::~OrvButton() = default;

void OrvButton::Create(OrvButtonDesc* desc)
{
    OrvWidget::Create(desc);
    m_backgroundNormalColor = desc->backgroundNormalColor;
    m_backgroundHoverColor = desc->backgroundHoverColor;
    m_backgroundPressedColor = desc->backgroundPressedColor;
    m_textNormalColor = desc->textNormalColor;
    m_textHoverColor = desc->textHoverColor;
    m_textPressedColor = desc->textPressedColor;

    OrvLabelDesc labelDesc(desc->labelDesc);
    labelDesc.type = desc->type + "Label";
    labelDesc.render = desc->render;
    m_label = m_manager->CreateGameAsset<OrvLabel, OrvLabelDesc>(&labelDesc);
    try
    {
        if (m_label->GetParent() != this)
            AddChild(m_label);
        if (m_autoSize)
            ComputeOptimalSize();
        UseColorMaterial(m_backgroundNormalColor);
    }
    catch (...)
    {
        DropLabel();
        throw;
    }
    m_label->SetFontColor(m_textNormalColor);
}

void OrvButton::DropLabel()
{
    if (m_label == nullptr)
        return;
    m_label->Detach();
    m_manager->DeleteGameAsset(m_label);
    m_label = nullptr;
}

void OrvButton::SetText(const OrvUnicode& text)
{
    if (m_label == nullptr)
        return;
    m_label->SetText(text);
    if (m_autoSize)
        ComputeOptimalSize();
}

OrvUnicode OrvButton::GetText() const
{
    return m_label != nullptr ? m_label->GetText() : OrvUnicode("");
}

void OrvButton::SetBackgroundColor(const OrvColor& color)
{
    if (OrvColorMaterial* material = GetColorMaterial())
        material->SetColor(color);
}

void OrvButton::ComputeOptimalSize()
{
    const OrvMesh* label = m_label != nullptr ? m_label->GetMesh() : nullptr;
    if (label == nullptr || m_mesh == nullptr || label->GetVertexCount() < 4 || m_mesh->GetVertexCount() < 4)
        return;
    if (m_label->GetHeight() > GetHeight())
        for (unsigned int i = 0; i < 4; ++i)
        {
            OrvVertex* vertex = m_mesh->GetVertex(i);
            vertex->SetPosition(OrvVector3D(vertex->GetPosition().X, label->GetVertex(i)->GetPosition().Y, 0.0f));
        }
    if (m_label->GetWidth() > GetWidth())
        for (unsigned int i = 0; i < 4; ++i)
        {
            OrvVertex* vertex = m_mesh->GetVertex(i);
            vertex->SetPosition(OrvVector3D(label->GetVertex(i)->GetPosition().X, vertex->GetPosition().Y, 0.0f));
        }
    m_mesh->BuildBoundingVolumes();
}

void OrvButton::ShowColors(const OrvColor& background, const OrvColor& text)
{
    SetBackgroundColor(background);
    if (m_label != nullptr)
        m_label->SetFontColor(text);
}

void OrvButton::CursorEntered(OrvCursor* cursor)
{
    OrvWidget::CursorEntered(cursor);
    ShowColors(m_backgroundHoverColor, m_textHoverColor);
}

void OrvButton::CursorExit(OrvCursor* cursor)
{
    OrvWidget::CursorExit(cursor);
    ShowColors(m_backgroundNormalColor, m_textNormalColor);
}

void OrvButton::CursorPressed(OrvCursor* cursor)
{
    OrvWidget::CursorPressed(cursor);
    ShowColors(m_backgroundPressedColor, m_textPressedColor);
}

void OrvButton::CursorReleased(OrvCursor* cursor)
{
    OrvWidget::CursorReleased(cursor);
    ShowColors(m_backgroundHoverColor, m_textHoverColor);
}
