void a(){}
void b() { }
void c() { /* only */ }
void d() { // line
}
void e()
{ f(); }
void g() { f();
// last
}
void h() { {} { f(); } { { f(); } } }
int i() // head
{ return 1; } int j() { return 2; }

void k() /* head */ { f();

    // blank lines stay


    f(); }
