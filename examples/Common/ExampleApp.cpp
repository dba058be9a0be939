#include "ExampleApp.h"

#include <GL/gl.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <OrvEngine/OrvColorMaterial.h>
#include <OrvEngine/OrvColoredTextureMaterial.h>
#include <OrvEngine/OrvException.h>
#include <OrvEngine/OrvFileManager.h>
#include <OrvEngine/OrvFont.h>
#include <OrvEngine/OrvFontDesc.h>
#include <OrvEngine/OrvInputManager.h>
#include <OrvEngine/OrvKeyboardEvent.h>
#include <OrvEngine/OrvMesh.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvSDLJoypad.h>
#include <OrvEngine/OrvSDLKeyboard.h>
#include <OrvEngine/OrvSDLMouse.h>
#include <OrvEngine/OrvPNGWriter.h>
#include <OrvEngine/OrvTGAImageFile.h>
#include <OrvEngine/OrvTexture.h>
#include <OrvEngine/OrvTextureManager.h>
#include <OrvEngine/OrvTimerManager.h>
#include <OrvEngine/OrvVertex.h>

void ExampleApp::OnInitialise()
{
    if (m_options.seconds <= 0.0f)
        return;
    OrvTimer* end = GetTimerManager()->AddTimer();
    end->SetTimeLimit(m_options.seconds);
    end->SetEndCallBack([](OrvTimer*, void* game) { static_cast<ExampleApp*>(game)->Exit(); }, this);
    end->Start();
}

void ExampleApp::OnTerminate()
{
    // Fonts hold users of their textures: they go while the texture manager is there.
    for (OrvFont* font : m_fonts)
        delete font;
    m_fonts.clear();
    for (OrvTexture* texture : m_textures)
        texture->RemoveUser();
    m_textures.clear();
}

void ExampleApp::ProcessInputEvent(const OrvInputEvent& event)
{
    if (event.GetType() == INPUT_KEY_DOWN && static_cast<const OrvKeyboardEvent&>(event).GetKey() == KEY_ESCAPE)
        Exit();
}

void ExampleApp::RenderHUD()
{
    OrvApplication::RenderHUD();
    // Exit() lets the turn finish: this frame is the last one drawn.
    if (!m_options.screenshot.empty() && !IsRunning())
        SaveScreenshot();
}

void ExampleApp::AddStandardDevices()
{
    m_keyboard = new OrvSDLKeyboard();
    m_mouse = new OrvSDLMouse();
    m_joypad = new OrvSDLJoypad(0);
    for (OrvInputDevice* device : {static_cast<OrvInputDevice*>(m_keyboard), static_cast<OrvInputDevice*>(m_mouse),
                                   static_cast<OrvInputDevice*>(m_joypad)})
    {
        GetInputManager()->AddDevice(device);
        device->Create();
        AddInputDevice(device);
    }
}

OrvSDLMouse* ExampleApp::GetMouse() const
{
    return m_mouse;
}

OrvMesh* ExampleApp::MakeQuad(float width, float height, OrvMaterial* material) const
{
    OrvMesh* mesh = new OrvMesh(GetRenderer());
    const float w = width * 0.5f, h = height * 0.5f;
    const float corners[4][4] = {{-w, -h, 0, 0}, {w, -h, 1, 0}, {w, h, 1, 1}, {-w, h, 0, 1}};
    for (const auto& c : corners)
        mesh->AddVertex(new OrvVertex(OrvVector3D(c[0], c[1], 0), OrvVector2D(c[2], c[3]), OrvVector3D(0, 1, 0)));
    mesh->SetMaterial(material);
    mesh->BuildBoundingVolumes();
    return mesh;
}

OrvColorMaterial* ExampleApp::MakeColor(const OrvColor& color) const
{
    OrvColorMaterial* material = new OrvColorMaterial(GetRenderer());
    material->SetColor(color);
    return material;
}

OrvColoredTextureMaterial* ExampleApp::MakeTextured(const char* image, const OrvColor& tint)
{
    return new OrvColoredTextureMaterial(GetRenderer(), LoadTexture(image), tint);
}

OrvTexture* ExampleApp::LoadTexture(const char* image)
{
    // The texture keeps the pixels: the file is not needed once they are uploaded.
    OrvTGAImageFile* file = GetFileManager()->GetOrLoad<OrvTGAImageFile>(image);
    OrvTexture* texture = GetTextureManager()->CreateTexture();
    texture->AddUser();
    m_textures.push_back(texture);
    texture->SetDataFromImage(file);
    GetFileManager()->DeleteOrvFile(file);
    return texture;
}

OrvFont* ExampleApp::LoadFont(const char* image, unsigned int cell, float sizeCoef)
{
    OrvFontDesc desc;
    desc.fileName = image;
    desc.imageWidth = desc.imageHeight = 16.0f * static_cast<float>(cell);
    desc.symbolWidth = desc.symbolHeight = static_cast<float>(cell);
    desc.sizeCoef = sizeCoef;
    OrvFont* font = new OrvFont();
    m_fonts.push_back(font);
    font->Create(this, desc);
    return font;
}

void ExampleApp::Report(const char* format, ...) const
{
    std::printf("%s: ", m_name);
    va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
    std::printf("\n");
    std::fflush(stdout);
}

// The pixels come from OpenGL; the file is written by the engine's PNG
// writer (a name ending in .png, rows from the top) or TGA writer (bottom
// row first).
void ExampleApp::SaveScreenshot() const
{
    const unsigned int width = GetRenderer()->GetViewportWidth();
    const unsigned int height = GetRenderer()->GetViewportHeight();
    std::vector<unsigned char> rgba(static_cast<size_t>(width) * height * 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(static_cast<GLint>(GetRenderer()->GetViewportOriginX()),
                 static_cast<GLint>(GetRenderer()->GetViewportOriginY()), static_cast<GLsizei>(width),
                 static_cast<GLsizei>(height), GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    // What the window shows is opaque, whatever the blending left in alpha.
    for (size_t i = 3; i < rgba.size(); i += 4)
        rgba[i] = 255;
    const std::string& name = m_options.screenshot;
    if (name.size() > 4 && name.compare(name.size() - 4, 4, ".png") == 0)
    {
        const size_t row = static_cast<size_t>(width) * 4;
        std::vector<unsigned char> topFirst(rgba.size());
        for (unsigned int y = 0; y < height; ++y)
            std::memcpy(&topFirst[y * row], &rgba[(height - 1 - y) * row], row);
        OrvPNGWriter::Write(name, width, height, topFirst.data());
    }
    else
    {
        OrvTGAImageFile shot;
        shot.SetImageTypeCode(2);
        shot.SetImagePixelSize(32);
        shot.SetWidth(width);
        shot.SetHeight(height);
        shot.ResetImageData();
        std::memcpy(shot.GetData(), rgba.data(), rgba.size());
        shot.Create(GetFileManager(), ++GetFileManager()->LastFileID);
        shot.Save(name.c_str(), OrvFile::SAVE_DEFAULT);
        shot.Close();
    }
    Report("%ux%u screenshot saved to %s", width, height, name.c_str());
}

bool ParseExampleOptions(int argc, char** argv, ExampleOptions& options)
{
    for (int i = 1; i < argc; ++i)
    {
        char* end = nullptr;
        if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc)
            options.screenshot = argv[++i];
        else if (std::strcmp(argv[i], "--demo") == 0)
            options.demo = true;
        else if (std::strcmp(argv[i], "--windowed") == 0)
            setenv("ORV_WINDOWED", "1", 1);
        else if ((options.seconds = std::strtof(argv[i], &end)) < 0.0f || end == argv[i] || *end != '\0')
        {
            std::fprintf(stderr, "Usage: %s [SECONDS] [--windowed] [--demo] [--screenshot FILE]\n", argv[0]);
            return false;
        }
    }
    return true;
}

int RunExampleGame(ExampleApp& game)
{
    try
    {
        game.Run();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "%s: %s: %s (%s:%d)\n", game.GetName(), e.name, e.message, e.file, e.line);
        return 1;
    }
    return 0;
}
