int f() {
switch(a){
case 1: b(); break;
case A::B:
case 'c': { d(); }
  // comment
  break;
case (1 + 2): /* why */ e(); // tail
default: ;
}
switch (a) { }
switch (a) { default: switch (b) { case 2: c(); } }
switch (a) {
    int x;
#ifdef X
    case 1:
#endif
    label: c(); goto label;
    case 3:

        d();
}
}
