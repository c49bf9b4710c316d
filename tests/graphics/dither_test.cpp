// Reading pixmaps back into images, and the threshold of XwkDitherPixmap.
#include "xwktest.h"

#include <X11/IntrinsicP.h>

namespace {

Pixmap Paint(Widget w, int width, int height, unsigned long (*colour)(int x, int y))
{
    Display *dpy = XtDisplay(w);
    Pixmap pm = XCreatePixmap(dpy, RootWindowOfScreen(XtScreen(w)), width, height,
                              DefaultDepthOfScreen(XtScreen(w)));
    GC gc = XCreateGC(dpy, pm, 0, nullptr);
    for (int y = 0; y < height; y++) {
        for (int x = 0; x < width; x++) {
            XSetForeground(dpy, gc, colour(x, y));
            XDrawPoint(dpy, pm, gc, x, y);
        }
    }
    XFreeGC(dpy, gc);
    return pm;
}

}  // namespace

TEST(Dither, GreyOf128SetsTheBitAndAboveClearsIt)
{
    Widget shell = xwktest::StartApp();
    Display *dpy = XtDisplay(shell);
    // Columns: 0-3 grey 128; 4-7 grey 128.4 (129, 128, 128); 8-10 grey 129;
    // 11-12 dark; the last byte of each row is a partial one.
    Pixmap pm = Paint(shell, 13, 3, [](int x, int) -> unsigned long {
        if (x < 4) return 0x808080;
        if (x < 8) return 0x818080;
        if (x < 11) return 0x818181;
        return 0x102030;
    });
    Pixmap bits = XwkDitherPixmap(shell, DefaultColormapOfScreen(XtScreen(shell)), pm);
    ASSERT_NE(bits, 0u);
    int w, h, d;
    XwkGetPixmapWHD(dpy, bits, &w, &h, &d);
    EXPECT_EQ(w, 13);
    EXPECT_EQ(h, 3);
    EXPECT_EQ(d, 1);
    XwkGetPixmapWHD(dpy, bits, nullptr, nullptr, nullptr);
    xwktest::Capture out(dpy, bits, 0, 0, 13, 3);
    ASSERT_TRUE(out.ok());
    unsigned long set = WhitePixelOfScreen(XtScreen(shell)) & 1;
    for (int y = 0; y < 3; y++) {
        for (int x = 0; x < 13; x++) {
            bool dark = x < 4 || x >= 11;
            EXPECT_EQ(out.Pixel(x, y), dark ? set : !set) << x << "," << y;
        }
    }
    XFreePixmap(dpy, bits);
    XFreePixmap(dpy, pm);
}

TEST(PixmapToImage, BlackAndWhiteGreyAndColourOnTrueColor)
{
    Widget shell = xwktest::StartApp();
    Display *dpy = XtDisplay(shell);
    Colormap map = DefaultColormapOfScreen(XtScreen(shell));

    Pixmap bw = Paint(shell, 5, 2,
                      [](int x, int y) -> unsigned long { return (x + y) % 2 ? 0xffffff : 0; });
    XwkImage *image = XwkPixmapToImage(shell, bw, map);
    ASSERT_NE(image, nullptr);
    ASSERT_EQ(image->cmapSize, 2);
    EXPECT_EQ(image->bytesPerPixel, 1);
    unsigned char two[] = {0, 0, 0, 255, 255, 255};
    EXPECT_EQ(memcmp(image->cmap, two, 6), 0);
    for (int i = 0; i < 10; i++)
        EXPECT_EQ(image->data[i], (i % 5 + i / 5) % 2) << i;
    XwkImageDelete(image);

    Pixmap grey =
        Paint(shell, 3, 1, [](int x, int) -> unsigned long { return 0x010101UL * (x * 100); });
    image = XwkPixmapToImage(shell, grey, map);
    ASSERT_EQ(image->cmapSize, 256);
    EXPECT_EQ(image->cmap[3 * 77], 77);
    EXPECT_EQ(image->cmap[3 * 77 + 2], 77);
    EXPECT_EQ(image->data[0], 0);
    EXPECT_EQ(image->data[1], 100);
    EXPECT_EQ(image->data[2], 200);
    XwkImageDelete(image);

    Pixmap colour =
        Paint(shell, 2, 1, [](int x, int) -> unsigned long { return x ? 0x123456 : 0xffffff; });
    image = XwkPixmapToImage(shell, colour, map);
    ASSERT_EQ(image->cmapSize, 0);
    EXPECT_EQ(image->bytesPerPixel, 3);
    unsigned char rgb[] = {255, 255, 255, 0x12, 0x34, 0x56};
    EXPECT_EQ(memcmp(image->data, rgb, 6), 0);

    // Reduced and expanded again, the picture survives.
    XwkImage *reduced = XwkImageCompress(image, 4);
    ASSERT_EQ(reduced->cmapSize, 2);
    XwkImage *back = XwkImageToRGB(reduced);
    EXPECT_EQ(memcmp(back->data, rgb, 6), 0);
    XwkImageDelete(back);
    XwkImageDelete(reduced);

    XFreePixmap(dpy, bw);
    XFreePixmap(dpy, grey);
    XFreePixmap(dpy, colour);
}

TEST(PixmapToImage, PseudoColorPixmapsAreMappedThroughThePalette)
{
    Widget pseudo = xwktest::PseudoColorShell();
    Display *dpy = XtDisplay(pseudo);
    XwkPalette *palette = XwkPaletteCreate(pseudo);
    XColor red = xwktest::Rgb(0xff00, 0x1000, 0x2000);
    static Pixel red_pixel;
    red_pixel = XwkPaletteAlloc(palette, &red);
    Pixmap pm = Paint(pseudo, 3, 2, [](int x, int) -> unsigned long {
        return x == 1 ? red_pixel : 0;
    });
    XwkImage *image = XwkPixmapToImage(pseudo, pm, palette->colormap);
    ASSERT_NE(image, nullptr);
    ASSERT_EQ(image->cmapSize, 256);
    EXPECT_EQ(image->bytesPerPixel, 1);
    EXPECT_EQ(image->data[1], red_pixel);
    EXPECT_EQ(image->data[4], red_pixel);
    EXPECT_EQ(image->cmap[red_pixel * 3], 0xff);
    EXPECT_EQ(image->cmap[red_pixel * 3 + 1], 0x10);
    EXPECT_EQ(image->cmap[red_pixel * 3 + 2], 0x20);

    // The same pixmap as a bitmap: red is 0.4 * 255 + 0.4 * 16 + 0.2 * 32 = 114.8, dark.
    Pixmap bits = XwkDitherPixmap(pseudo, palette->colormap, pm);
    xwktest::Capture out(dpy, bits, 0, 0, 3, 2);
    EXPECT_EQ(out.Pixel(1, 0), WhitePixelOfScreen(XtScreen(pseudo)) & 1);
    XwkImageDelete(image);
    XFreePixmap(dpy, bits);
    XFreePixmap(dpy, pm);
    XwkPaletteDelete(palette);
}
