// Opening and closing branches from the program, and the update batch.
#include "widgets/tree/tree.h"

#include <Xm/XmP.h>

using namespace xwk::tree;

extern "C" {

void XmPrjTreeChangeState(Widget w, XmPrjTreeNode node, int state)
{
    if (!IsTree(w) || !Alive(w) || !node || !Item(node) || !M(w).canSlam || !OwnNode(w, node) ||
        Doomed(w, node))
        return;
    int now = ItemState(node);
    if (!node->first_child && now == XmSLAM_UNDEFINED)
        now = XmSLAM_CLOSE;
    if (state == now)
        return;
    bool hidden = Hidden(w, node);
    int row = hidden ? -1 : RowOf(w, node);
    int top = P(w).topRow;
    // Whatever value was asked for, the branch toggles, as it always has.
    ToggleState(w, node);
    LayoutPass(w);
    if (!RealizedAndManaged(w))
        return;
    ConfigureAllScrollBars(w);
    if (hidden)
        return;
    int after = RowOf(w, node);
    if (P(w).topRow == top && after == row) {
        if (!RowOnPage(w, row))
            return;
        RepaintFrom(w, node);
        return;
    }
    RepaintAll(w, P(w).clearOnUpdate);
}

int XmPrjTreeGetState(Widget w, XmPrjTreeNode node)
{
    if (!IsTree(w) || !node || !Item(node))
        return 0;
    if (!M(w).canSlam)
        return XmSLAM_UNDEFINED;
    return ItemState(node);
}

void XmPrjTreeSetEditable(Widget w, Boolean editable)
{
    if (!IsTree(w) || !Alive(w))
        return;
    for (Widget v : Views(w)) {
        P(v).dontMove = !editable;
        if (editable)
            P(v).flags &= ~XmTREE_SCROLLBARS_BUSY;
    }
    if (!editable)
        return;
    LayoutPass(w);
    ConfigureAllScrollBars(w);
    if (RealizedAndManaged(w))
        RepaintAll(w, P(w).clearOnUpdate);
}

Boolean XmPrjTreeGetEditable(Widget w)
{
    return IsTree(w) && !P(w).dontMove;
}

}  // extern "C"
