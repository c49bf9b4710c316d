void xwk_demo_placeholder(void) {}
