// Palettes on the 24-bit TrueColor screen and the 8-bit PseudoColor screen.
#include "xwktest.h"

namespace {

using xwktest::Rgb;

XwkPaletteCell *FirstFree(XwkPalette *p)
{
    for (int i = 0; i < p->mapEntries; i++)
        if (!p->cells[i].inUse)
            return &p->cells[i];
    return nullptr;
}

int CountFree(XwkPalette *p)
{
    int n = 0;
    for (int i = 0; i < p->mapEntries; i++)
        n += !p->cells[i].inUse;
    return n;
}

// A palette with a colormap of its own on the 8-bit PseudoColor screen.
class PseudoColorPalette : public ::testing::Test {
protected:
    void SetUp() override
    {
        p = XwkPaletteCreate(shell);
        ASSERT_NE(p, nullptr);
    }
    void TearDown() override { XwkPaletteDelete(p); }
    Widget shell = xwktest::PseudoColorShell();
    Display *dpy = XtDisplay(shell);
    XwkPalette *p = nullptr;
};

}  // namespace

TEST(TrueColorPalette, ArithmeticWithoutCells)
{
    Widget shell = xwktest::StartApp();
    XwkPalette *p = XwkPaletteCreate(shell);
    ASSERT_NE(p, nullptr);
    EXPECT_TRUE(p->readOnly);
    EXPECT_FALSE(p->usesCells);
    EXPECT_FALSE(p->shared);
    EXPECT_FALSE(p->grey);
    EXPECT_EQ(p->cells, nullptr);
    EXPECT_EQ(XwkPaletteGetUnused(p), 0u);
    EXPECT_EQ(p->redSize, 256);
    EXPECT_EQ(p->redShift, 16);
    EXPECT_EQ(p->blueShift, 0);

    XColor c = Rgb(0x12ff, 0x5601, 0x9abc);
    EXPECT_EQ(XwkPaletteAlloc(p, &c), 0x12569aUL);
    EXPECT_EQ(c.pixel, 0x12569aUL);

    Pixel pixel = 0;
    XColor again = Rgb(0x1200, 0x5600, 0x9a00);
    EXPECT_EQ(XwkPaletteLookupColor(p, &again, &pixel), 1);
    EXPECT_EQ(pixel, 0x12569aUL);

    XColor list[2] = {Rgb(0xffff, 0, 0), Rgb(0, 0, 0x8080)};
    Pixel pixels[2];
    EXPECT_EQ(XwkPaletteAllocN(p, list, 2, pixels), 0);
    EXPECT_EQ(pixels[0], 0xff0000UL);
    EXPECT_EQ(pixels[1], 0x80UL);

    // One static record: the second lookup overwrites the first.
    XColor *first = XwkPaletteLookup(p, 0x123456);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->red, 0x1200);
    EXPECT_EQ(first->green, 0x3400);
    EXPECT_EQ(first->blue, 0x5600);
    XColor *second = XwkPaletteLookup(p, 0xff0001);
    EXPECT_EQ(second, first);
    EXPECT_EQ(first->red, 0xff00);
    EXPECT_EQ(first->blue, 0x0100);

    XColor any = Rgb(1, 2, 3);
    EXPECT_EQ(XwkPaletteSetPixel(p, 5, &any), 0);

    EXPECT_EQ(XwkPaletteFindDpy(XtDisplay(shell), p->colormap), p);
    EXPECT_EQ(XwkPaletteFind(shell, p->colormap), p);
    Colormap map = p->colormap;
    XwkPaletteDelete(p);
    EXPECT_EQ(XwkPaletteFindDpy(XtDisplay(shell), map), nullptr);
    XFreeColormap(XtDisplay(shell), map);
}

TEST_F(PseudoColorPalette, OwnColormapReservesBlackWhiteAndOneCell)
{
    Screen *screen = XtScreen(shell);
    EXPECT_TRUE(p->usesCells);
    EXPECT_FALSE(p->readOnly);
    EXPECT_FALSE(p->shared);
    ASSERT_EQ(p->mapEntries, 256);
    EXPECT_NE(p->colormap, DefaultColormapOfScreen(screen));
    EXPECT_EQ(p->freeCells, 253);
    EXPECT_EQ(CountFree(p), 253);
    Pixel black = BlackPixelOfScreen(screen), white = WhitePixelOfScreen(screen);
    EXPECT_TRUE(p->cells[black].inUse);
    EXPECT_TRUE(p->cells[white].inUse);
    Pixel unused = XwkPaletteGetUnused(p);
    EXPECT_NE(unused, black);
    EXPECT_NE(unused, white);
    EXPECT_TRUE(p->cells[unused].inUse);
    for (Pixel i = 0; i < unused; i++)
        EXPECT_TRUE(i == black || i == white) << "cell " << i << " comes before the kept one";

    // The new colormap holds the default map's colours.
    XColor white_cell = xwktest::QueryColour(dpy, p->colormap, white);
    EXPECT_EQ(white_cell.red & 0xff00, 0xff00);
    XColor *looked = XwkPaletteLookup(p, white);
    ASSERT_NE(looked, nullptr);
    EXPECT_EQ(looked->red, 0xff00);
    EXPECT_EQ(XwkPaletteLookup(p, 300), nullptr);
}

TEST_F(PseudoColorPalette, AllocationTakesFreeCellsThenTheNearest)
{

    XwkPaletteCell *free_cell = FirstFree(p);
    ASSERT_NE(free_cell, nullptr);
    Pixel expected = free_cell->color.pixel;
    XColor c = Rgb(0x4000, 0x8000, 0xc000);
    Pixel got = XwkPaletteAlloc(p, &c);
    EXPECT_EQ(got, expected);
    EXPECT_EQ(p->freeCells, 252);
    EXPECT_EQ(p->lastCell, nullptr);
    XColor server = xwktest::QueryColour(dpy, p->colormap, got);
    EXPECT_EQ(server.red & 0xff00, 0x4000);
    EXPECT_EQ(server.blue & 0xff00, 0xc000);

    // Found again in the table: no new cell, and it becomes lastCell.
    XColor same = Rgb(0x4000, 0x8000, 0xc000);
    EXPECT_EQ(XwkPaletteAlloc(p, &same), got);
    EXPECT_EQ(p->freeCells, 252);
    ASSERT_NE(p->lastCell, nullptr);
    EXPECT_EQ(p->lastCell->color.pixel, got);

    // Fill every free cell with a distinct colour.
    std::vector<Pixel> taken;
    for (int i = 0; p->freeCells > 0; i++) {
        XColor fill = Rgb((unsigned short)((i % 16) * 0x1000 + 0x0800),
                          (unsigned short)((i / 16) * 0x1000 + 0x0800), 0x2200);
        taken.push_back(XwkPaletteAlloc(p, &fill));
        ASSERT_LT(i, 300);
    }
    EXPECT_EQ(CountFree(p), 0);

    // The nearest cell: (0x4100, 0x8000, 0xc100) is next to the first colour.
    XColor near = Rgb(0x4100, 0x8000, 0xc100);
    EXPECT_EQ(XwkPaletteAlloc(p, &near), got);
    EXPECT_EQ(near.pixel, got);
    EXPECT_EQ(p->freeCells, 0);
    XColor near_fill = Rgb(0x1900, 0x0900, 0x2200);  // closest to fill #1: (0x1800, 0x0800, 0x2200)
    EXPECT_EQ(XwkPaletteAlloc(p, &near_fill), taken[1]);
}

TEST_F(PseudoColorPalette, UnmaskedColoursAreNotFoundAgain)
{
    // (0x1234 + 0x5678 + 0x9abc) & 0x7f is not 0: the cell goes to a bucket
    // that searches, which use masked colours, never visit.
    XColor a = Rgb(0x1234, 0x5678, 0x9abc);
    XColor b = a;
    Pixel first = XwkPaletteAlloc(p, &a);
    Pixel second = XwkPaletteAlloc(p, &b);
    EXPECT_NE(first, second);
    EXPECT_EQ(p->freeCells, 251);
    Pixel pixel = 0;
    XColor probe = Rgb(0x1200, 0x5600, 0x9a00);
    EXPECT_EQ(XwkPaletteLookupColor(p, &probe, &pixel), 0);

    // A colour whose channel sum has no low bits is found again.
    XColor m1 = Rgb(0x1200, 0x5600, 0x9a00);
    XColor m2 = m1;
    EXPECT_EQ(XwkPaletteAlloc(p, &m1), XwkPaletteAlloc(p, &m2));
    EXPECT_EQ(XwkPaletteLookupColor(p, &probe, &pixel), 1);
    EXPECT_EQ(pixel, m1.pixel);
}

TEST_F(PseudoColorPalette, SetPixelIsReadBackFromTheServer)
{
    Pixel pixel = FirstFree(p)->color.pixel;
    XColor c = Rgb(0x1234, 0xabcd, 0x00ff);
    EXPECT_EQ(XwkPaletteSetPixel(p, pixel, &c), 1);
    EXPECT_EQ(c.pixel, pixel);
    EXPECT_TRUE(p->cells[pixel].invalid);
    XColor server = xwktest::QueryColour(dpy, p->colormap, pixel);
    XColor *looked = XwkPaletteLookup(p, pixel);
    ASSERT_NE(looked, nullptr);
    EXPECT_FALSE(p->cells[pixel].invalid);
    EXPECT_EQ(looked->red, server.red & 0xff00);
    EXPECT_EQ(looked->green, server.green & 0xff00);
    EXPECT_EQ(looked->blue, server.blue & 0xff00);
    EXPECT_EQ(looked->red, 0x1200);

    XwkPaletteSetInvalid(p, pixel);
    EXPECT_TRUE(p->cells[pixel].invalid);
}

TEST_F(PseudoColorPalette, AllocNClaimsPresentColoursBeforeFreeCells)
{
    // Put a colour into the first free cell without taking it.
    XwkPaletteCell *f = FirstFree(p);
    Pixel present = f->color.pixel;
    XColor z = Rgb(0x3300, 0x4400, 0x5500);
    ASSERT_EQ(XwkPaletteSetPixel(p, present, &z), 1);
    ASSERT_NE(XwkPaletteLookup(p, present), nullptr);
    EXPECT_FALSE(f->inUse);

    // One pass would give the first free cell to the new colour.
    XColor list[2] = {Rgb(0x7700, 0x7700, 0x7700), Rgb(0x3300, 0x4400, 0x5500)};
    Pixel pixels[2];
    EXPECT_EQ(XwkPaletteAllocN(p, list, 2, pixels), 0);
    EXPECT_EQ(pixels[1], present);
    EXPECT_NE(pixels[0], present);
    EXPECT_TRUE(f->inUse);
    EXPECT_EQ(p->freeCells, 251);

    // Asking for the kept cell's colour moves the kept pixel on.
    Pixel unused = XwkPaletteGetUnused(p);
    XColor u = Rgb(0x6100, 0x6200, 0x6300);
    ASSERT_EQ(XwkPaletteSetPixel(p, unused, &u), 1);
    XwkPaletteLookup(p, unused);
    XColor ask = u;
    Pixel out;
    XwkPaletteAllocN(p, &ask, 1, &out);
    EXPECT_EQ(out, unused);
    EXPECT_NE(XwkPaletteGetUnused(p), unused);
    EXPECT_EQ(XwkPaletteGetUnused(p), FirstFree(p)->color.pixel);
}

TEST(DefaultPseudoColorPalette, IsSharedAndNeverStores)
{
    Widget shell = xwktest::PseudoColorShell();
    Display *dpy = XtDisplay(shell);
    Screen *screen = XtScreen(shell);
    XwkPalette *p = XwkPaletteGetDefault(shell);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(XwkPaletteGetDefault(shell), p);
    EXPECT_TRUE(p->shared);
    EXPECT_EQ(p->colormap, DefaultColormapOfScreen(screen));
    EXPECT_EQ(p->freeCells, 256);
    XColor c = Rgb(0x1000, 0x2000, 0x3000);
    EXPECT_EQ(XwkPaletteSetPixel(p, 5, &c), 0);
    XColor *black = XwkPaletteLookup(p, BlackPixelOfScreen(screen));
    ASSERT_NE(black, nullptr);
    EXPECT_EQ(black->red, 0);
    EXPECT_EQ(XwkPaletteFindDpy(dpy, DefaultColormapOfScreen(screen)), p);

    // Taking a cell of the shared map writes nothing to the server.
    xwktest::Warnings watch;
    XColor fresh = Rgb(0x0100, 0x0200, 0x0300);
    XwkPaletteAlloc(p, &fresh);
    EXPECT_EQ(watch.XErrors(), 0);
}

TEST_F(PseudoColorPalette, DeleteLeavesTheColormap)
{
    Colormap map = p->colormap;
    XwkPaletteDelete(p);
    p = nullptr;
    EXPECT_EQ(XwkPaletteFindDpy(dpy, map), nullptr);
    xwktest::Warnings watch;
    xwktest::QueryColour(dpy, map, 3);
    XFreeColormap(dpy, map);
    EXPECT_EQ(watch.XErrors(), 0);
}
