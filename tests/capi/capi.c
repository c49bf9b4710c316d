/* Compiled as C: the umbrella header is valid C, and exports of every family
 * link and work without a display. */
#include <Xwk/Xwk.h>
#include <stdio.h>
#include <string.h>

static int failures;

static void check(int ok, const char *what)
{
    if (!ok) {
        fprintf(stderr, "capi: %s\n", what);
        failures++;
    }
}

int main(void)
{
    char text[] = "  a  b  ";
    unsigned short x = 1, y = 1;
    XwkList *list = l_create(NULL, NULL);
    XwkTree *tree = t_create(1, NULL, NULL);
    XwkHashTable *table = XwkAllocHashTable(0, NULL, NULL);
    char **keys = NULL, **values = NULL;
    int count = -1;

    check(strstr(XwkVersionString, "Xwk GUI Library.") != NULL, "version string");
    check(XwkCheckVersion(1, 0), "version check");
    cm_pix(1.0f, 1.0f, &x, &y);
    check(x == 0 && y == 0, "no scale before start-up");
    check(strcmp(stpcvt(text, XWK_CVT_ALL_SPACE), "ab") == 0, "stpcvt");
    check(l_append(list, text) != NULL && list->count == 1, "l_append");
    check(t_tlink(tree, NULL, text) != NULL, "t_tlink");
    XwkAddHashEntry(table, (XtPointer)1, text);
    check(XwkGetHashEntryIterate(table, (XtPointer)1, NULL) == text, "hash lookup");
    check(XwkReadIni("/nonexistent/xwk.ini", "s", &keys, &values, &count) == 0 && count == 0,
          "ini on a missing file");
    check(strcmp(smi18n_gettext("text"), "text") == 0, "catalogue");
    {
        struct stat st;
        char mode[11];
        memset(&st, 0, sizeof st);
        st.st_mode = S_IFDIR | 0755;
        check(strcmp(XmFileSelectionDeskConvertStatToString(&st, mode), "drwxr-xr-x") == 0,
              "file desk mode text");
    }
    l_destroy(list);
    t_destroy(tree);
    XwkFreeHashTable(table);
    return failures != 0;
}
