// bench/floor_scene.h
// What the machine needs at least for a finished picture of the panel: the same pixels by straight loops of SSE2,
// written for this one scene. Rounded faces, their edges, and the ink of labels and icons as masks, over a cleared
// page, and a copy.
#pragma once
#include <cstdint>
#include <utility>
#include <vector>

class FloorScene {
  public:
    struct Box {
        int x, y, w, h;
    };
    // `picture` holds height rows of width pixels; `page` is the colour between the faces.
    FloorScene(const std::vector<uint32_t>& picture, int width, int height, uint32_t page,
               const std::vector<Box>& faces);
    const std::vector<uint32_t>& Draw();  // the copy

  private:
    struct Face {
        Box box;
        uint32_t fill, edge;
    };
    struct Ink {  // rows of masks, four bytes and more wide; of one colour
        int x, y, w, h;
        uint32_t color;
        std::vector<uint8_t> weights;
    };
    void Fill(const Face& face);
    void Blend(const Ink& ink);

    int width_, height_;
    uint32_t page_;
    std::vector<Face> faces_;
    std::vector<Ink> inks_;
    std::vector<std::pair<int, uint32_t>> rest_;  // single pixels, by place
    std::vector<uint32_t> drawn_, copied_;
};
