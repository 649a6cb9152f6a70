#include "platform/text/FontFace.h"

int fontManagerWeight(FontWeight weight)
{
    switch (weight) {
    case FontWeight::UltraLight:
        return 2;
    case FontWeight::Thin:
        return 3;
    case FontWeight::Light:
        return 4;
    case FontWeight::Regular:
        return 5;
    case FontWeight::Medium:
        return 6;
    case FontWeight::Semibold:
        return 8;
    case FontWeight::Bold:
        return 9;
    case FontWeight::Heavy:
        return 11;
    case FontWeight::Black:
        return 12;
    }
    return 5;
}

NSFontWeight descriptorWeight(FontWeight weight)
{
    switch (weight) {
    case FontWeight::UltraLight:
        return NSFontWeightUltraLight;
    case FontWeight::Thin:
        return NSFontWeightThin;
    case FontWeight::Light:
        return NSFontWeightLight;
    case FontWeight::Regular:
        return NSFontWeightRegular;
    case FontWeight::Medium:
        return NSFontWeightMedium;
    case FontWeight::Semibold:
        return NSFontWeightSemibold;
    case FontWeight::Bold:
        return NSFontWeightBold;
    case FontWeight::Heavy:
        return NSFontWeightHeavy;
    case FontWeight::Black:
        return NSFontWeightBlack;
    }
    return NSFontWeightRegular;
}
