// By-reference forms of the desk controls: each scalar input by address,
// one call of the plain form.
#include <Xwk/Desk.h>

namespace {

template <typename T> T value_of(const T *p)
{
    return p ? *p : T();
}

}  // namespace

void setlabel_(XwkDeskRec **desk, float *x, float *y, const char *text, XwkDeskItem **out)
{
    SetLabel(value_of(desk), value_of(x), value_of(y), text, out);
}

void setbutton_(XwkDeskRec **desk, float *x, float *y, const char *text, XwkDeskItem **out)
{
    SetButton(value_of(desk), value_of(x), value_of(y), text, out);
}

void getbutton_(XwkDeskItem **item, int *pressed)
{
    GetButton(value_of(item), pressed);
}

void setseparator_(XwkDeskRec **desk, float *x, float *y, float *length, int *style,
                   XwkDeskItem **out)
{
    SetSeparator(value_of(desk), value_of(x), value_of(y), value_of(length), value_of(style), out);
}

void setradiobox_(XwkDeskRec **desk, float *x, float *y, const char *title, const char *items,
                  int *count, int *selected, XwkDeskItem **out)
{
    SetRadioBox(value_of(desk), value_of(x), value_of(y), title, items, value_of(count),
                value_of(selected), out);
}

void getradiobox_(XwkDeskItem **item, int *selected)
{
    GetRadioBox(value_of(item), selected);
}

void changeradiobox_(XwkDeskItem **item, int *selected)
{
    ChangeRadioBox(value_of(item), value_of(selected));
}

void setcheckbox_(XwkDeskRec **desk, float *x, float *y, const char *title, const char *items,
                  int *count, int *states, XwkDeskItem **out)
{
    SetCheckBox(value_of(desk), value_of(x), value_of(y), title, items, value_of(count), states,
                out);
}

void getcheckbox_(XwkDeskItem **item, int *states)
{
    GetCheckBox(value_of(item), states);
}

void setoptionmenu_(XwkDeskRec **desk, float *x, float *y, const char *title, int *reserved,
                    const char *items, int *count, int *selected, XwkDeskItem **out)
{
    SetOptionMenu(value_of(desk), value_of(x), value_of(y), title, value_of(reserved), items,
                  value_of(count), value_of(selected), out);
}

void getoptionmenu_(XwkDeskItem **item, int *selected)
{
    GetOptionMenu(value_of(item), selected);
}

void setscrolledlist_(XwkDeskRec **desk, float *x, float *y, const char *title,
                      const char *items, int *count, int *visible, int *selected,
                      XwkDeskItem **out)
{
    SetScrolledList(value_of(desk), value_of(x), value_of(y), title, items, value_of(count),
                    value_of(visible), value_of(selected), out);
}

void getscrolledlist_(XwkDeskItem **item, int *selected)
{
    GetScrolledList(value_of(item), selected);
}

void changescrolledlist_(XwkDeskItem **item, int *position)
{
    ChangeScrolledList(value_of(item), value_of(position));
}

void seteditfield_(XwkDeskRec **desk, float *x, float *y, const char *label, float *gap,
                   void *value, int *type, int *length, int *columns, XwkDeskItem **out)
{
    SetEditField(value_of(desk), value_of(x), value_of(y), label, value_of(gap), value,
                 value_of(type), value_of(length), value_of(columns), out);
}

void geteditfield_(XwkDeskItem **item, void *value)
{
    GetEditField(value_of(item), value);
}

void changeeditfield_(XwkDeskItem **item, void *value)
{
    ChangeEditField(value_of(item), value);
}
