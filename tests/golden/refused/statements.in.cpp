public:
int x
class A { void f() { public: g(); } };
class : B { };
void g() { namespace N { } template <class T> class U; if a; }
