// Text drawn with a bitmap font: Font.tga holds the glyphs of codes 32 to 255
// in 16 × 16 cells of 32 pixels, rasterised from a TrueType font at build
// time by "orvmedia font". An OrvFont draws a line or a block of lines, left
// aligned or centred, in any colour and size, wherever the model matrix puts
// it; an OrvLabel is a widget that shows one line.
//
//   Text [SECONDS] [--windowed] [--screenshot FILE]
#include "ExampleApp.h"
#include <OrvEngine/OrvFont.h>
#include <OrvEngine/OrvLabel.h>
#include <OrvEngine/OrvLabelDesc.h>
#include <OrvEngine/OrvRenderer.h>

namespace
{
class Text : public ExampleApp
{
public:
    explicit Text(const ExampleOptions& options) : ExampleApp("Text", options) {}

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        // A label follows the cursors, and so needs the mouse.
        AddStandardDevices();
        m_font = LoadFont("Font.tga", 32, 1.0f);

        OrvLabelDesc desc;
        desc.font = m_font;
        desc.text = "A label is a widget";
        desc.fontColor = OrvColor(80, 220, 255, 255);
        desc.fontSizeCoef = 0.5f;
        desc.align = FONT_ALIGN_CENTER;
        desc.position = OrvVector3D(0, -150, 0);
        Make<OrvLabel>(desc, GetHUDRoot());
    }

    // Here the model matrix counts pixels from the window's lower-left corner.
    void OnRenderHUD() override
    {
        OrvRenderer* renderer = GetRenderer();
        const float middleX = static_cast<float>(renderer->GetViewportWidth()) * 0.5f;
        const float middleY = static_cast<float>(renderer->GetViewportHeight()) * 0.5f;

        // A title centred on the line 100 pixels above the middle.
        m_font->SetSizeCoef(1.0f);
        m_font->SetColor(OrvColor(255, 220, 0, 255));
        renderer->PushMatrix(TRANS_MATRIX_MODEL);
        renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(middleX, middleY + 100, 0));
        m_font->RenderText("Hello, OrvEngine!", FONT_ALIGN_CENTER);
        renderer->DiscardMatrix(TRANS_MATRIX_MODEL);

        // Two lines at half the size, left aligned: the first character is
        // centred on the origin, each line goes one cell height lower.
        m_font->SetSizeCoef(0.5f);
        m_font->SetColor(OrvColor(255, 255, 255, 255));
        renderer->PushMatrix(TRANS_MATRIX_MODEL);
        renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(middleX - 300, middleY - 20, 0));
        m_font->RenderText("Glyphs come from Font.tga,\nmade by orvmedia from a TrueType font.", FONT_ALIGN_LEFT);
        renderer->DiscardMatrix(TRANS_MATRIX_MODEL);
    }

private:
    OrvFont* m_font = nullptr;
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<Text>(argc, argv);
}
