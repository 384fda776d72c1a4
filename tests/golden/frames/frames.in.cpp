namespace A{int a;namespace B{ void b(); }}
namespace{ int c; }
namespace D { }
namespace E=A::B;
using namespace A;
namespace F // comment
{
/* first */ class G;
// last
}
extern "C"{ int h(); }
extern "C" int i();
extern "C" {
#include <stdio.h>
}
template<class A,int B=2>class J{ J(); };
template <> class K<int>{};
template < template <class> class L, class M = N<O> > struct P { int p; };
template<class T>void q(T t);
template<class T> int r;
class S { int s; };
MACRO {
int t; }
BEGIN_MAP(U)
END_MAP()
{ int v; }
;
int w;; }
int x;
