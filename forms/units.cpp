// Centimetres and pixels.  The scale is fixed at start-up; before it, every
// conversion to pixels gives 0.
#include <Xwk/Desk.h>
#include <Xwk/Frame.h>

#include <math.h>

namespace {

// Rounded, then kept in 16 bits as the original did: large or negative
// values wrap around.
unsigned short to_pixels(float cm, float scale)
{
    return (unsigned short)(long)lroundf(cm * scale);
}

}  // namespace

void cm_pix(float x_cm, float y_cm, unsigned short *x, unsigned short *y)
{
    if (x)
        *x = to_pixels(x_cm, xwkCmWidth);
    if (y)
        *y = to_pixels(y_cm, xwkCmHeight);
}

void pix_cm(unsigned short x, unsigned short y, float *x_cm, float *y_cm)
{
    if (x_cm)
        *x_cm = (float)x / xwkCmWidth;
    if (y_cm)
        *y_cm = (float)y / xwkCmHeight;
}

unsigned short XwkWidth(float cm)
{
    return to_pixels(cm, xwkCmWidth);
}

unsigned short XwkHeight(float cm)
{
    return to_pixels(cm, xwkCmHeight);
}
