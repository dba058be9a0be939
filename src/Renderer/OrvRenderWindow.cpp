#include "OrvRenderWindow.h"

OrvRenderWindow::OrvRenderWindow() : m_caption(""), m_width(0), m_height(0), m_fullScreen(false) {}

OrvRenderWindow::~OrvRenderWindow() = default;

void OrvRenderWindow::Create(const char* caption, unsigned int width, unsigned int height, bool fullScreen)
{
    m_caption = caption != nullptr ? caption : "";
    m_width = width;
    m_height = height;
    m_fullScreen = fullScreen;
}

void OrvRenderWindow::ToggleFullScreen()
{
    m_fullScreen = !m_fullScreen;
}

void OrvRenderWindow::SetWindowSize(unsigned int width, unsigned int height)
{
    m_width = width;
    m_height = height;
}
