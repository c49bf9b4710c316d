/**
 * \file
 * \brief Includes every public header of the Xwk GUI Library: its whole
 * public interface in one include.
 *
 * It includes Xwk/Frame.h, Xwk/Lists.h, Xwk/Strings.h,
 * Xwk/Ini.h, Xwk/Desk.h, Xwk/Text.h, Xwk/Graphics.h, Xwk/ComboBox.h,
 * Xwk/PanedW.h, Xwk/Dialogs.h, Xwk/PrjTree.h and Xwk/PrjDesk.h.  The
 * private records of the widgets (Xwk/ComboBoxP.h, Xwk/PanedWP.h,
 * Xwk/PrjTreeP.h, Xwk/PrjDeskP.h) are for subclasses and are included on
 * their own.
 *
 * Link with `pkg-config --cflags --libs xwk`.  Every function is a plain C
 * function; widgets follow Motif's conventions (Xwk/PrjTree.h and friends).
 */
#ifndef XWK_XWK_H
#define XWK_XWK_H

#include <Xwk/Frame.h>
#include <Xwk/Lists.h>
#include <Xwk/Strings.h>
#include <Xwk/Ini.h>
#include <Xwk/Desk.h>
#include <Xwk/Text.h>
#include <Xwk/Graphics.h>
#include <Xwk/ComboBox.h>
#include <Xwk/PanedW.h>
#include <Xwk/Dialogs.h>
#include <Xwk/PrjTree.h>
#include <Xwk/PrjDesk.h>

#endif
