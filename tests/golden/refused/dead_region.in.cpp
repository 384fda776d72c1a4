#if 0
int x;
#if A
#endif
