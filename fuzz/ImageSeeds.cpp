#include "fuzz/Seeds.h"
#include "tests/images/ImageBytes.h"

std::vector<Seed> imageSeeds()
{
    return {
        {"a.png", twoColouredImage("png", 9, 7)},
        {"a.jpg", twoColouredImage("jpeg", 9, 7)},
        {"turned.jpg", withOrientation(twoColouredImage("jpeg", 16, 8), 6)},
        {"a.bmp", twoColouredImage("bmp", 9, 7)},
        {"a.tiff", twoColouredImage("tiff", 9, 7)},
        {"a.ico", twoColouredImage("ico", 9, 7)},
        {"a.gif", animation()},
        {"large.png", pngThatClaims(7000, 7000)},
        {"a.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='7'><path d='M1 1L5 5'/></svg>"},
    };
}
