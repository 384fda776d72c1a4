enum A{a,b,c};
enum B { };
enum C{};
enum{d=1,eeee=2,fff = 3} variable;
enum E {
  a,
  bb = 1, // comment
  ccc = 1<<2 ,   /* block */
  dddd // last
};
enum F { a = f(1,2), b
#ifdef X
, c
#endif
};
enum G // head
{ a, b };
typedef enum { x = 'a', yy = sizeof(A) } H;
namespace N { enum I { i = 1,
 jj = 2,
 kkk = 3 }; }
