class A { int a; void f(); };
struct B{};
struct C{ // why
int c;
// last
};
class D
{
int d; }; // behind
class Forward;
template <class T> class E { T t; };
template <class T>
struct F { T t; struct Inner { int i; } inner; };
struct { int x; } anonymous;
union U { int i; float f; } u, *pu;
class EXPORT G : public A { G( ); ~G( ); G& operator=(const G& g); };
typedef struct tag { int i; } Tag;
class H /* comment */ { int h; };
class I // comment
{ int i; };
void f() { struct Local { int l; }; Local x; }
