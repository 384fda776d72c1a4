A::A():a(1){}
A::A(int x)
: a( x ) , b(x,1),c( )
{ f(); }
A::A() : a(1), // first
  b(2) /* second */ , c(3) {}
A::A() : B<C>(1), D::E(p*q) { } // behind
class F { F() : a(0),b(0) {} G g; F(int); };
A::~A() {}
A::A() : a(
#ifdef X
1
#else
2
#endif
) {}
