// Sprite benchmark, SFML's side: the picture orvspritebench draws, drawn the
// two ways an SFML game would.
//
//   sfmlspritebench [--mode sprites|vertexarray] [--sprites N] [--warmup N] [--frames N] [--depth]
//                   [--shot FILE.ppm]
//
// sprites:     one sf::Sprite per sprite, one window.draw each.
// vertexarray: one sf::VertexArray of quads rebuilt every frame, one draw.
// --depth asks for 24 depth and 8 stencil bits (SFML's default has none).
//
// Prints one line in the form orvspritebench uses.
#include <SFML/Graphics.hpp>
#include <SFML/OpenGL.hpp>

#include <chrono>
#include <cstdio>
#include <vector>

#include "SpriteWorkload.h"

namespace
{
using Clock = std::chrono::steady_clock;

sf::Texture MakeTexture()
{
    std::vector<sf::Uint8> pixels(sprites::kTextureSize * sprites::kTextureSize * 4);
    for (unsigned int y = 0; y < sprites::kTextureSize; ++y)
        for (unsigned int x = 0; x < sprites::kTextureSize; ++x)
        {
            const std::uint32_t texel = sprites::Texel(x, y);
            for (int c = 0; c < 4; ++c)
                pixels[(y * sprites::kTextureSize + x) * 4 + c] = static_cast<sf::Uint8>(texel >> (24 - 8 * c));
        }
    sf::Image image;
    image.create(sprites::kTextureSize, sprites::kTextureSize, pixels.data());
    sf::Texture texture;
    texture.loadFromImage(image);
    texture.setSmooth(false);
    return texture;
}

sf::IntRect CellRect(unsigned int index)
{
    const int size = static_cast<int>(sprites::kSpriteSize);
    return sf::IntRect(static_cast<int>(sprites::CellColumn(index)) * size,
                       static_cast<int>(sprites::CellRow(index)) * size, size, size);
}
}  // namespace

int main(int argc, char** argv)
{
    sprites::Options options;
    options.mode = "sprites";
    if (!sprites::ParseOptions(argc, argv, "sprites|vertexarray", options))
        return 2;
    const bool batched = options.mode == "vertexarray";
    if (!batched && options.mode != "sprites")
    {
        std::fprintf(stderr, "sfmlspritebench: unknown mode %s (sprites or vertexarray)\n", options.mode.c_str());
        return 2;
    }

    sf::ContextSettings settings;
    if (options.depth)
    {
        settings.depthBits = 24;
        settings.stencilBits = 8;
    }
    sf::RenderWindow window(sf::VideoMode(sprites::kWindowWidth, sprites::kWindowHeight), "sfmlspritebench",
                            sf::Style::Titlebar | sf::Style::Close, settings);
    window.setVerticalSyncEnabled(false);
    const sf::Texture texture = MakeTexture();

    std::vector<sf::Sprite> spriteList;
    sf::VertexArray quads(sf::Quads, options.sprites * 4);
    const Clock::time_point created = Clock::now();
    if (!batched)
    {
        spriteList.reserve(options.sprites);
        for (unsigned int i = 0; i < options.sprites; ++i)
            spriteList.emplace_back(texture, CellRect(i));
    }
    const double createMilliseconds = std::chrono::duration<double, std::milli>(Clock::now() - created).count();

    const float side = static_cast<float>(sprites::kSpriteSize);
    Clock::time_point start;
    double seconds = 0.0;
    // Turns warmup .. warmup + frames - 1 are timed; the one after them is
    // drawn for the screenshot.
    const unsigned int last = options.warmup + options.frames;
    for (unsigned int frame = 0; frame <= last; ++frame)
    {
        if (frame == options.warmup)
            start = Clock::now();
        if (frame == last)
            seconds = std::chrono::duration<double>(Clock::now() - start).count();
        sf::Event event;
        while (window.pollEvent(event))
        {
        }
        window.clear(sf::Color::Black);
        for (unsigned int i = 0; i < options.sprites; ++i)
        {
            int x = 0;
            int y = 0;
            sprites::Place(i, frame, x, y);
            const sf::Vector2f place(static_cast<float>(x), static_cast<float>(y));
            if (batched)
            {
                const sf::IntRect cell = CellRect(i);
                const sf::Vector2f t(static_cast<float>(cell.left), static_cast<float>(cell.top));
                sf::Vertex* quad = &quads[i * 4];
                quad[0] = sf::Vertex(place, t);
                quad[1] = sf::Vertex(place + sf::Vector2f(side, 0), t + sf::Vector2f(side, 0));
                quad[2] = sf::Vertex(place + sf::Vector2f(side, side), t + sf::Vector2f(side, side));
                quad[3] = sf::Vertex(place + sf::Vector2f(0, side), t + sf::Vector2f(0, side));
            }
            else
            {
                spriteList[i].setPosition(place);
                window.draw(spriteList[i]);
            }
        }
        if (batched)
            window.draw(quads, sf::RenderStates(&texture));
        if (frame == last && !options.shot.empty())
        {
            std::vector<unsigned char> pixels(sprites::kWindowWidth * sprites::kWindowHeight * 4);
            glReadPixels(0, 0, sprites::kWindowWidth, sprites::kWindowHeight, GL_RGBA, GL_UNSIGNED_BYTE,
                         pixels.data());
            if (!sprites::WritePPM(options.shot, sprites::kWindowWidth, sprites::kWindowHeight, pixels))
                std::fprintf(stderr, "sfmlspritebench: cannot write %s\n", options.shot.c_str());
        }
        window.display();
    }
    std::printf("sfmlspritebench mode=%s sprites=%u window=%s ms_per_frame=%.3f draw_calls_per_frame=%u "
                "create_ms=%.2f\n",
                options.mode.c_str(), options.sprites, options.depth ? "depth" : "flat",
                seconds * 1000.0 / static_cast<double>(options.frames), batched ? 1u : options.sprites,
                createMilliseconds);
    return 0;
}
