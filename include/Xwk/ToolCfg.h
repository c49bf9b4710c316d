/**
 * \file
 * \ingroup toolcfg
 * \brief The tool configuration model: the options of the external tools
 * (compilers and the like) that the development environment drives, as
 * dialog items and as command-line text.
 *
 * A tool (IDECfgTool) has divisions (IDECfgDivision), each one page of
 * settings; a division has items, each one dialog control standing for one
 * or more command-line options.  The model goes both ways: from the item
 * states to the option text of the tool (IDECfgGetToolOptions), and from an
 * option text back to the item states (IDECfgStringToTool), keeping what no
 * item recognised as the tool's extra options.  A tool also gives the macro
 * table of a build (IDECfgGetMacrosesForTool).
 *
 * The application fills the records from a description of its own.  Every
 * record, table and string of the model comes from XtMalloc and is freed
 * with XtFree, by IDECfgFreeTool and IDECfgFreeDivisionItems.
 *
 * **Shared strings.**  The strings marked shared below belong to the tool's
 * master (a tool whose master field points to itself).  Clones made by
 * IDECfgNewTool point to the master's strings and never free them, so a
 * master must outlive its clones.
 *
 * **References.**  A division whose reference field is set uses the items
 * of the division it refers to: every operation that reads or writes items
 * goes to that one, except IDECfgGetItemByPrefix.
 *
 * **Saved states.**  Each state has a saved twin: a dialog changes the
 * state, the saved copy tells whether anything changed
 * (IDECfgToolIsChanged) and allows undoing (IDECfgUpdateSettings).
 *
 * **Item kinds** (the kind field of the head), by the desk control that
 * shows them:
 *
 * | Kind | Control         | Record            |
 * |------|-----------------|-------------------|
 * | 3    | check box group | IDECfgListItem    |
 * | 25   | scrolled list   | IDECfgListItem    |
 * | 29   | option menu     | IDECfgListItem    |
 * | 35   | radio box       | IDECfgListItem    |
 * | 4    | single toggle   | IDECfgToggleItem  |
 * | 15   | edit field      | IDECfgEditItem    |
 * | 23   | label           | IDECfgItem        |
 * | 38   | label, a word   | IDECfgWordItem    |
 */
#ifndef XWK_TOOLCFG_H
#define XWK_TOOLCFG_H

#include <X11/Intrinsic.h>
#include <Xwk/Desk.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** Item kind: a group of check boxes, any number of options on. */
#define IDECFG_CHECK_GROUP   3
/** Item kind: one toggle standing for one option. */
#define IDECFG_TOGGLE        4
/** Item kind: an edit field whose text is the option's value. */
#define IDECFG_EDIT          15
/** Item kind: a label only. */
#define IDECFG_LABEL         23
/** Item kind: a scrolled list, any number of options on. */
#define IDECFG_LIST          25
/** Item kind: an option menu, one option on. */
#define IDECFG_OPTION_MENU   29
/** Item kind: a radio box, one option on. */
#define IDECFG_RADIO_BOX     35
/** Item kind: a label with a word of the application's. */
#define IDECFG_LABEL_WORD    38

/** The head of every item record. */
typedef struct _IDECfgItem {
    int kind;                   /**< One of the IDECFG_ kinds. */
    char *label;                /**< Label of the control; shared. */
    long aux1;                  /**< The application's; copied. */
    long aux2;                  /**< The application's; copied. */
    unsigned char flag;         /**< The application's; copied. */
    XwkDeskItem *control;       /**< The desk control now showing the item, or NULL; never copied. */
} IDECfgItem;

/** One option of a list item: a command-line word that is on or off. */
typedef struct _IDECfgOption {
    char *label;                /**< Text shown for the option; shared. */
    char *value;                /**< The option's text behind the item's prefix; shared.  A value of one character, or one starting with a blank, stands for no option (for "none" entries). */
    Boolean state;              /**< On or off. */
    Boolean saved;              /**< The saved state. */
    Boolean sensitive;          /**< The option may be changed in the dialog. */
} IDECfgOption;

/** An item of kind 3, 25, 29 or 35: a set of options. */
typedef struct _IDECfgListItem {
    IDECfgItem head;            /**< Common head. */
    int option_count;           /**< Number of options. */
    IDECfgOption **options;     /**< The options, in order. */
    long reserved;              /**< The application's; copied for kind 25 only. */
    char *prefix;               /**< Written before each option's value, or NULL; shared. */
} IDECfgListItem;

/** An item of kind 4: one toggle for one option. */
typedef struct _IDECfgToggleItem {
    IDECfgItem head;            /**< Common head. */
    char *option;               /**< The option's text, written when on; shared. */
    Boolean state;              /**< On or off. */
    Boolean saved;              /**< The saved state. */
    Boolean sensitive;          /**< The toggle may be changed in the dialog. */
} IDECfgToggleItem;

/** An item of kind 15: an edit field holding one or several values. */
typedef struct _IDECfgEditItem {
    IDECfgItem head;            /**< Common head. */
    char *prefix;               /**< Written before each value; a single blank (or an empty string) makes the field hold name=value assignments.  Shared. */
    char *value;                /**< The text, or NULL; several values are separated by newlines.  The item's own. */
    char *saved_value;          /**< The saved text, or NULL.  The item's own. */
    int mode;                   /**< 2 or more: the field holds several values, one a line. */
    long spare1;                /**< The application's; copied. */
    int value_type;             /**< 1 integer, 2 and 3 float, any other text (for IDECfgGetValue and IDECfgSetValue). */
    long spare2;                /**< The application's; copied. */
    Boolean sensitive;          /**< The field may be changed in the dialog. */
    Widget companion;           /**< A widget made sensitive with the field (a browse button), or NULL; never copied. */
} IDECfgEditItem;

/** An item of kind 38: a label with a word of the application's. */
typedef struct _IDECfgWordItem {
    IDECfgItem head;            /**< Common head. */
    long word;                  /**< The application's; copied. */
} IDECfgWordItem;

struct _IDECfgTool;

/** One page of settings of a tool. */
typedef struct _IDECfgDivision {
    char *name;                 /**< Name, looked up by IDECfgGetDivisionByName; shared. */
    char *text1;                /**< Descriptive text; shared. */
    char *text2;                /**< Descriptive text; shared. */
    char *macro;                /**< When set and not empty, the name of the division's own macro; shared. */
    int item_count;             /**< Number of entries of items. */
    IDECfgItem **items;         /**< The items; an entry may be NULL. */
    char *text3;                /**< Descriptive text; shared. */
    struct _IDECfgDivision *reference; /**< When set, the division whose items this one uses. */
    int ref_count;              /**< Greater than 0 when divisions of other tools refer to this one. */
    struct _IDECfgTool *tool;   /**< The owner. */
    long spare;                 /**< The application's; cleared when the items are freed. */
} IDECfgDivision;

/** A (name, value) pair of a tool. */
typedef struct _IDECfgPair {
    char *name;                 /**< Name; the tool's own. */
    char *value;                /**< Value; the tool's own. */
} IDECfgPair;

/** A tool: its divisions, its command and its macros. */
typedef struct _IDECfgTool {
    long id;                    /**< The application's; copied to clones. */
    struct _IDECfgTool *master; /**< The tool that owns the shared strings; a master points to itself. */
    char *name;                 /**< Tool name, also the first macro's name; shared. */
    char *text1;                /**< Descriptive text; shared. */
    char *text2;                /**< Descriptive text; shared. */
    int division_count;         /**< Number of divisions. */
    IDECfgDivision **divisions; /**< The divisions, in order. */
    char *exec;                 /**< The command, value of the name macro; the tool's own. */
    char *options_override;     /**< When set, it is the tool's option text; the tool's own. */
    IDECfgPair *pairs;          /**< Pairs of the application's, freed with the tool; not copied to clones. */
    int pair_count;             /**< Number of pairs. */
    char *std_macro;            /**< Second macro name, looked up by IDECfgGetToolByStdMacro; shared. */
    char *options_macro;        /**< Name of the macro that holds the options; shared. */
    char *text3;                /**< Descriptive text; shared. */
    char *text4;                /**< Descriptive text; shared. */
    char *text5;                /**< Descriptive text; shared. */
    char *extra_options;        /**< What IDECfgUpdateStringToTool could not assign; the tool's own. */
    Boolean no_extra;           /**< True: unrecognised text is dropped. */
    unsigned char flag;         /**< The application's; copied to clones. */
    char **depend_names;        /**< Names of the tools this one depends on, until IDECfgCollectDependTools. */
    struct _IDECfgTool **depend_tools; /**< The tools depended on, after IDECfgCollectDependTools. */
    int depend_count;           /**< Entries of whichever of the two tables is in use. */
    long spare;                 /**< The application's; copied to clones. */
    char **macros;              /**< Further macros as "name=value"; shared. */
    int macro_count;            /**< Number of macros. */
    struct _XwkTreeNode *tree_item; /**< Tree list row showing the tool, or NULL; IDECfgFreeTool deletes it. */
} IDECfgTool;

/**
 * Clones a tool.
 *
 * The clone points to the shared strings of \p tool (its master field
 * included, so a clone of a master points to that master), the macro table
 * and the dependency tables.  exec and options_override are copied,
 * extra_options only when no_extra is False; pairs are not copied.  Each
 * division is a new record owned by the clone, its strings shared and its
 * reference kept; a division without reference gets a deep copy of the
 * items.
 *
 * \param tool The tool; NULL gives NULL.
 * \return The clone, freed with IDECfgFreeTool before its master.
 */
IDECfgTool *IDECfgNewTool(IDECfgTool *tool);
/**
 * Deep-copies the items of one division into another.
 *
 * Makes a new item table and new items: option records, edit values and
 * saved values are copied, strings marked shared are not.  A NULL item
 * stays NULL and an item of an unknown kind gets no record.  Controls are
 * not copied.  The target's former items are not freed.
 *
 * \param source The division copied.
 * \param target The division receiving the items.
 * \return \p target, or NULL when either is NULL.
 */
IDECfgDivision *IDECfgCopyDivision(IDECfgDivision *source, IDECfgDivision *target);
/**
 * Frees a tool: deletes its tree list row (unmapping that list's shell),
 * frees its divisions and their items (the shared strings only for a
 * master; items only of divisions without reference), its own strings and
 * pairs and, for a master, the macros and dependency tables.
 *
 * \param tool The tool; NULL is accepted.
 */
void IDECfgFreeTool(IDECfgTool *tool);
/**
 * Frees the items of a division and clears its table, count and spare
 * word.  The shared strings of the items are freed only when the
 * division's tool is a master (or the division has no tool).  A division
 * with a reference does not own items: nothing is done.
 *
 * \param division The division; NULL is accepted.
 */
void IDECfgFreeDivisionItems(IDECfgDivision *division);

/**
 * The option text of a tool: options_override when set, otherwise the text
 * of each division (IDECfgDivisionToString) and the extra options, joined
 * by blanks, white space runs reduced to one blank outside quotes.
 *
 * \param tool The tool.
 * \return A new string (XtFree), or NULL when the text is empty.
 */
char *IDECfgGetToolOptions(IDECfgTool *tool);
/**
 * The option text of one division: for each item that is on, its options
 * (prefix and value of each option on, the toggle's option text, or the
 * prefix before each value of an edit field, a value holding a blank in
 * double quotes), separated by blanks.  The text is cut at 49999
 * characters.
 *
 * \param division The division.
 * \return A new string (XtFree), or NULL when the text is empty.
 */
char *IDECfgDivisionToString(IDECfgDivision *division);
/**
 * Sets the items of one division from an option text, every item not
 * named in it being reset.
 *
 * \param text     The option text; NULL counts as empty.
 * \param division The division.
 * \return True when an item recognised anything.
 */
Boolean IDECfgStringToDivision(const char *text, IDECfgDivision *division);
/**
 * Sets the items of a tool from an option text.
 *
 * The divisions parse in order, each cutting what it recognises out of the
 * text, so that earlier divisions and items have the first claim on a
 * word.  What is left becomes extra_options, unless no_extra is set, when
 * it is dropped.
 *
 * \param text  The option text; NULL or empty counts as one blank.
 * \param tool  The tool.
 * \param reset True: items not named in the text are turned off (edit
 *              fields emptied); False: they are left as they are.  List
 *              items with a prefix keep their states when the prefix is
 *              not in the text, even with reset.
 * \return True when an item recognised anything.
 */
Boolean IDECfgUpdateStringToTool(const char *text, IDECfgTool *tool, Boolean reset);
/**
 * IDECfgUpdateStringToTool with reset True.
 *
 * \param text The option text.
 * \param tool The tool.
 * \return True when an item recognised anything.
 */
Boolean IDECfgStringToTool(const char *text, IDECfgTool *tool);

/**
 * Reads a setting of a tool by option name: IDECfgGetDivisionValue on
 * each division in order.
 *
 * \param tool  The tool.
 * \param name  The option name.
 * \param value Receives the value, or NULL.
 * \return True at the first division that knows the name.
 */
Boolean IDECfgGetValue(IDECfgTool *tool, const char *name, XtPointer *value);
/**
 * Reads a setting of a division by option name; the first match wins.
 *
 * - A list item whose prefix is \p name: the value of its first option on
 *   (a shared string); when none is on the search goes on.
 * - A list option whose value is \p name: that value when on, else NULL.
 * - A toggle whose option text is \p name: the text when on, else NULL.
 * - An edit field with a value whose prefix is \p name: by its value type,
 *   an integer (1), a float truncated to an integer (2, 3), both cast to
 *   XtPointer, or the value string itself.  Without a value or without
 *   \p value the search goes on.
 *
 * \param division The division.
 * \param name     The option name.
 * \param value    Receives the value (NULL first), or NULL.  Strings are
 *                 the item's own: never free them.
 * \return True when found.
 */
Boolean IDECfgGetDivisionValue(IDECfgDivision *division, const char *name, XtPointer *value);
/**
 * Writes a setting of a tool by option name: IDECfgSetDivisionValue on
 * each division in order.
 *
 * \param tool  The tool.
 * \param name  The option name.
 * \param value Points at the new value.
 * \return True at the first division that knows the name.
 */
Boolean IDECfgSetValue(IDECfgTool *tool, const char *name, XtPointer value);
/**
 * Writes a setting of a division by option name; the first match wins, and
 * a control showing the item follows.
 *
 * - A list option whose value is \p name takes the Boolean at \p value as
 *   its state (in a radio box all others are turned off first).
 * - A toggle whose option text is \p name likewise.
 * - An edit field whose prefix is \p name: value type 1 writes "%d" of the
 *   int at \p value, types 2 and 3 "%f" of the float at \p value (while
 *   reading gives an integer), others a copy of the string at \p value
 *   (a `char *`, which may be NULL).
 *
 * \param division The division.
 * \param name     The option name.
 * \param value    Points at the new value; required.
 * \return True when found.
 */
Boolean IDECfgSetDivisionValue(IDECfgDivision *division, const char *name, XtPointer value);
/**
 * Makes an option sensitive or not, in the model and in its control: an
 * insensitive toggle or menu button gets empty translations, an edit field
 * is made read-only on its surroundings' background, with its companion
 * insensitive.  Scrolled lists are not matched by name: each one shown gets
 * the translations, and the search goes on.
 *
 * \param tool      The tool.
 * \param name      The option value, toggle option text or edit prefix.
 * \param sensitive True for sensitive.
 * \return True when found.
 */
Boolean IDECfgSetSensitivity(IDECfgTool *tool, const char *name, Boolean sensitive);

/**
 * Finds a division of a tool by name.
 *
 * \param tool     The tool.
 * \param name     The name, compared exactly.
 * \param position Receives its position from 1, or NULL.
 * \return The division, or NULL.
 */
IDECfgDivision *IDECfgGetDivisionByName(IDECfgTool *tool, const char *name, int *position);
/**
 * Finds a tool by name in a table.
 *
 * \param tools The table.
 * \param count Number of tools.
 * \param name  The name, compared exactly.
 * \return The first tool of that name, or NULL.
 */
IDECfgTool *IDECfgGetToolByName(IDECfgTool **tools, int count, const char *name);
/**
 * Finds a tool by its standard macro in a table.
 *
 * \param tools The table.
 * \param count Number of tools.
 * \param macro The macro name, compared exactly.
 * \return The first tool whose std_macro it is, or NULL.
 */
IDECfgTool *IDECfgGetToolByStdMacro(IDECfgTool **tools, int count, const char *macro);
/**
 * Finds a list item (kind 3, 25, 29 or 35) by its prefix, in the tool's own
 * divisions (references are not followed).
 *
 * \param tool   The tool.
 * \param prefix The prefix, compared exactly.
 * \return The item, or NULL.
 */
IDECfgListItem *IDECfgGetItemByPrefix(IDECfgTool *tool, const char *prefix);
/**
 * The macro table of a tool for a build: the tool's name with exec as
 * value; std_macro with exec; the options macro, whose value names each
 * division macro as "$(name)" followed by the option text; one row per
 * division with a macro, valued by its text; the tool's macros, cut at
 * their '=' (NULL value without one).
 *
 * \param tool   The tool.
 * \param names  Receives a new table of new names, or NULL.
 * \param values Receives a new table of new values (entries may be NULL),
 *               or NULL.
 * \return The number of rows.  Free each string and each table with XtFree.
 */
int IDECfgGetMacrosesForTool(IDECfgTool *tool, char ***names, char ***values);
/**
 * Resolves the dependency names of every tool of a table into tools of the
 * table; unknown names vanish.  The names and their table are freed.
 *
 * \param tools The table.
 * \param count Number of tools.
 */
void IDECfgCollectDependTools(IDECfgTool **tools, int count);
/**
 * Before a tool goes: every division of the given tools that refers to a
 * division of \p tool loses the reference and gets a deep copy of its
 * items.
 *
 * \param tool  The tool going.
 * \param tools The table of tools.
 * \param count Number of tools.
 */
void IDECfgUnlinkReferencesToTool(IDECfgTool *tool, IDECfgTool **tools, int count);
/**
 * Clears every reference of the given tools' divisions to a division of
 * \p tool, copying nothing.
 *
 * \param tool  The tool referred to.
 * \param tools The table of tools.
 * \param count Number of tools.
 */
void IDECfgDisableReferencesToTool(IDECfgTool *tool, IDECfgTool **tools, int count);
/**
 * Whether a setting of a tool differs from its saved twin: a state, or the
 * text of an edit field when both texts are set.
 *
 * \param tool The tool.
 * \return True at the first difference.
 */
Boolean IDECfgToolIsChanged(IDECfgTool *tool);
/**
 * IDECfgUpdateDivisionSettings on each division of a tool.
 *
 * \param tool The tool.
 * \param mode As for IDECfgUpdateDivisionSettings.
 */
void IDECfgUpdateSettings(IDECfgTool *tool, int mode);
/**
 * Moves states between the settings and their saved twins.
 *
 * Exactly 2 restores (state from saved, edit text from the saved text when
 * that is set and differs); exactly 4 saves.  Bit 8 clears the saved
 * twins, bit 16 the states and edit texts; the two bits combine.
 *
 * \param division The division.
 * \param mode     2, 4, or bits 8 and 16.
 */
void IDECfgUpdateDivisionSettings(IDECfgDivision *division, int mode);

/**
 * Places a division's items on a desk as controls, one under the other,
 * and records each control in its item: a check box group, a scrolled list
 * of multiple selection, an option menu, a radio box, a single toggle, an
 * edit field (three rows for several values) or a label.  The controls show
 * the current states; insensitive options are made insensitive.  A control
 * clears its item's control field when it is destroyed.
 *
 * \param desk     The desk.
 * \param division The division (its reference is followed).
 * \param x        Left edge of the controls, in centimetres.
 * \param y        Top of the first control, in centimetres.
 * \return The y, in centimetres, below the last control.
 */
float IDECfgCreateDivisionControls(XwkDeskRec *desk, IDECfgDivision *division, float x,
                                   float y);
/**
 * Reads the controls of a division, made by IDECfgCreateDivisionControls,
 * back into the states and edit texts of its items.  Items without control
 * are left alone.
 *
 * \param division The division (its reference is followed).
 * \return True when a state or text changed.
 */
Boolean IDECfgReadDivisionControls(IDECfgDivision *division);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
