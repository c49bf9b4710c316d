// The pictures of the message kinds, drawn for this library, and their
// icon records, built once at first use and kept.
#include <Xwk/Graphics.h>

#include "msgbox_private.h"

#include <algorithm>
#include <vector>

namespace {

// clang-format off
const char *const error_xpm[] = {
    "32 32 4 1",
    "  c None",
    "o c #7A0E0E",
    "f c #D02828",
    "w c #FFFFFF",
    "                                ",
    "                                ",
    "           oooooooooo           ",
    "         oooffffffffooo         ",
    "       oooffffffffffffooo       ",
    "      ooffffffffffffffffoo      ",
    "     ooffffffffffffffffffoo     ",
    "    ooffffffffffffffffffffoo    ",
    "    offffwffffffffffffwffffo    ",
    "   ooffffwwffffffffffwwffffoo   ",
    "   offfffwwwffffffffwwwfffffo   ",
    "  ooffffffwwwffffffwwwffffffoo  ",
    "  offffffffwwwffffwwwffffffffo  ",
    "  offfffffffwwwffwwwfffffffffo  ",
    "  offffffffffwwwwwwffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offffffffffwwwwwwffffffffffo  ",
    "  offfffffffwwwffwwwfffffffffo  ",
    "  offffffffwwwffffwwwffffffffo  ",
    "  ooffffffwwwffffffwwwffffffoo  ",
    "   offfffwwwffffffffwwwfffffo   ",
    "   ooffffwwffffffffffwwffffoo   ",
    "    offffwffffffffffffwffffo    ",
    "    ooffffffffffffffffffffoo    ",
    "     ooffffffffffffffffffoo     ",
    "      ooffffffffffffffffoo      ",
    "       oooffffffffffffooo       ",
    "         oooffffffffooo         ",
    "           oooooooooo           ",
    "                                ",
    "                                "};

const char *const information_xpm[] = {
    "32 32 4 1",
    "  c None",
    "o c #123C7A",
    "f c #2F6FC8",
    "w c #FFFFFF",
    "                                ",
    "                                ",
    "           oooooooooo           ",
    "         oooffffffffooo         ",
    "       oooffffffffffffooo       ",
    "      ooffffffffffffffffoo      ",
    "     ooffffffffffffffffffoo     ",
    "    ooffffffffwwwwffffffffoo    ",
    "    offfffffffwwwwfffffffffo    ",
    "   oofffffffffwwwwfffffffffoo   ",
    "   offffffffffwwwwffffffffffo   ",
    "  ooffffffffffffffffffffffffoo  ",
    "  offfffffffwwwwwwfffffffffffo  ",
    "  offfffffffwwwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  ooffffffffffwwwwffffffffffoo  ",
    "   offffffffffwwwwffffffffffo   ",
    "   oofffffffwwwwwwwwfffffffoo   ",
    "    offfffffwwwwwwwwfffffffo    ",
    "    ooffffffffffffffffffffoo    ",
    "     ooffffffffffffffffffoo     ",
    "      ooffffffffffffffffoo      ",
    "       oooffffffffffffooo       ",
    "         oooffffffffooo         ",
    "           oooooooooo           ",
    "                                ",
    "                                "};

const char *const question_xpm[] = {
    "32 32 4 1",
    "  c None",
    "o c #145A3C",
    "f c #2E9A62",
    "w c #FFFFFF",
    "                                ",
    "                                ",
    "           oooooooooo           ",
    "         oooffffffffooo         ",
    "       oooffffffffffffooo       ",
    "      ooffffffffffffffffoo      ",
    "     ooffffffffffffffffffoo     ",
    "    ooffffffwwwwwwwwffffffoo    ",
    "    offfffffwwwwwwwwfffffffo    ",
    "   oofffffwwwwffffwwwwfffffoo   ",
    "   offffffwwwwffffwwwwffffffo   ",
    "  ooffffffffffffffwwwwffffffoo  ",
    "  offfffffffffffffwwwwfffffffo  ",
    "  offfffffffffffwwwwfffffffffo  ",
    "  offfffffffffffwwwwfffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offfffffffffwwwwfffffffffffo  ",
    "  offffffffffffffffffffffffffo  ",
    "  ooffffffffffffffffffffffffoo  ",
    "   offffffffffwwwwffffffffffo   ",
    "   oofffffffffwwwwfffffffffoo   ",
    "    offffffffffffffffffffffo    ",
    "    ooffffffffffffffffffffoo    ",
    "     ooffffffffffffffffffoo     ",
    "      ooffffffffffffffffoo      ",
    "       oooffffffffffffooo       ",
    "         oooffffffffooo         ",
    "           oooooooooo           ",
    "                                ",
    "                                "};

const char *const warning_xpm[] = {
    "32 32 4 1",
    "  c None",
    "o c #6A5000",
    "f c #F2C218",
    "k c #000000",
    "                                ",
    "                                ",
    "               oo               ",
    "               oo               ",
    "              oooo              ",
    "              oooo              ",
    "             ooffoo             ",
    "             offffo             ",
    "            ooffffoo            ",
    "            offffffo            ",
    "           ooffffffoo           ",
    "          ooffffffffoo          ",
    "          ooffffffffoo          ",
    "         oofffkkkkfffoo         ",
    "         oofffkkkkfffoo         ",
    "        ooffffkkkkffffoo        ",
    "        offfffkkkkfffffo        ",
    "       oofffffkkkkfffffoo       ",
    "       offffffkkkkffffffo       ",
    "      ooffffffkkkkffffffoo      ",
    "     oofffffffkkkkfffffffoo     ",
    "     ooffffffffffffffffffoo     ",
    "    ooffffffffffffffffffffoo    ",
    "    ooffffffffkkkkffffffffoo    ",
    "   oofffffffffkkkkfffffffffoo   ",
    "   offffffffffffffffffffffffo   ",
    "  ooffffffffffffffffffffffffoo  ",
    "  offffffffffffffffffffffffffo  ",
    " oooooooooooooooooooooooooooooo ",
    "oooooooooooooooooooooooooooooooo",
    "                                ",
    "                                "};

// clang-format on

}  // namespace

// Pixmaps belong to one screen and depth: the icons are kept per screen, so
// that a box on a second screen never draws a picture of the first.
XwkIcon *xwk_kind_icon(Widget w, int kind)
{
    struct Kept {
        Screen *screen;
        XwkIcon *icons[4];
    };
    // Never destroyed: the icons stay for the whole process.
    static std::vector<Kept> &kept = *new std::vector<Kept>;
    static const char *const *pictures[4] = {error_xpm, information_xpm, question_xpm, warning_xpm};
    if (!w || kind < 1 || kind > 4)
        return nullptr;
    Screen *screen = XtScreenOfObject(w);
    auto it = std::find_if(kept.begin(), kept.end(), [&](const Kept &k) { return k.screen == screen; });
    if (it == kept.end())
        it = kept.insert(kept.end(), Kept{screen, {}});
    XwkIcon *&icon = it->icons[kind - 1];
    if (!icon)
        icon = XwkIconCreateFromData(w, (char **)pictures[kind - 1]);
    return icon;
}
