#ifndef ORV_RENDER_WINDOW_H
#define ORV_RENDER_WINDOW_H

/// The window the engine renders into. This base only remembers what it was
/// asked for (caption, size, full-screen flag); a platform window derives from
/// it and opens the real thing.
class OrvRenderWindow
{
public:
    OrvRenderWindow();
    virtual ~OrvRenderWindow();

    /// Stores the four values. The caption is not copied: it must outlive the window.
    virtual void Create(const char* caption, unsigned int width, unsigned int height, bool fullScreen);
    virtual void SwapBuffers() = 0;
    /// Flips the full-screen flag.
    virtual void ToggleFullScreen();
    /// Stores the new size.
    virtual void SetWindowSize(unsigned int width, unsigned int height);

    const char* GetCaption() const { return m_caption; }
    unsigned int GetWidth() const { return m_width; }
    unsigned int GetHeight() const { return m_height; }
    bool GetFullScreen() const { return m_fullScreen; }

    OrvRenderWindow(const OrvRenderWindow&) = delete;
    OrvRenderWindow& operator=(const OrvRenderWindow&) = delete;

protected:
    const char* m_caption;
    unsigned int m_width;
    unsigned int m_height;
    bool m_fullScreen;
};

#endif
