// Private to the library and its fuzz targets.
#ifndef XWK_TOOLCFG_FILETYPE_H
#define XWK_TOOLCFG_FILETYPE_H

// Forgets the loaded rule file, so that the next call reads one again.  The
// format keeps its table for the life of the process; only a fuzzer, which
// loads thousands of rule files in one process, needs this.
extern "C" void XwkFileTypeUnload(void);

#endif
