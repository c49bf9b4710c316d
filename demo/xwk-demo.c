#include <Xwk/Xwk.h>
int main(void) { return 0; }
