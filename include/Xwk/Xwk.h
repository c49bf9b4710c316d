/**
 * \file
 * \brief Includes every public header of the Xwk GUI Library: its whole
 * public interface in one include.
 *
 * It includes the public header of every subsystem and widget listed
 * below.  The private records of the widgets (the headers ending in P.h,
 * such as Xwk/PrjTreeP.h) are for subclasses and are included on their own.
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
#include <Xwk/Help.h>
#include <Xwk/Process.h>
#include <Xwk/ToolCfg.h>
#include <Xwk/ColorPicker.h>
#include <Xwk/FileSD.h>
#include <Xwk/Folder.h>
#include <Xwk/Bars.h>
#include <Xwk/Windows.h>
#include <Xwk/PrjDesk.h>

#endif
