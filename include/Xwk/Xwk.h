/*
 * Xwk/Xwk.h - the whole public interface of the Xwk GUI Library.
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

#endif
