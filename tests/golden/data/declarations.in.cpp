int a;
int  b=1;
const char *c = "c",*d;
unsigned   long e [ 10 ]={1,2, 3};
static A<B> f(1 , 2);
A g( );
int *h=&a, i = -1, &j=a;
int k[]={ {1,2},{3,4} };
struct S s={0};
extern int l;
int bits : 3;
A::B  m = A::B( 1 );
const int
n = 5;
int /* type */ o = 1;
int p /* name */ = /* value */ 5;
int q = 1, // one
    r = 2; /* two */
char* t[2] = {"a", "b"}; bool u = a<b;
int v = (int)b, w = f(a,*h);
std::string x("text"), y = "more" "and more"
  "on the next line";
int A::z = 0;
char* aa = "a\
b", *bb = "c";
int cc[2][3] = { }, dd [ ] = {
  1, // one
  /* two */ 2,
#ifdef X
  3
#endif
};
