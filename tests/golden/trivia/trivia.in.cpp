/* A comment
   of several
      lines. */
#include   <a>
#  define B(x) \
    (x) + \
      1
namespace N {
int a; // behind
  /* inside
   * with stars
   */
    #ifdef C
int b; /* one */ /* two
           goes on */ int c;
    #endif
void f() {
    a(); /* call
            it */ b();
#if 0
  anything ' goes { here
#endif
  // CORVANE-OFF
      int   left  =  alone ;
         {{
  // CORVANE-ON
  d(a, // first
    /* second
       line */ e);
	// a tab in front
label:
  g();
  asm("nop");
  __asm { mov eax, 1
    ret }
  x = "a\
      b";
}
}

// the end
#endif
  // no line end