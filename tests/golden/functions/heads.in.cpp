int f();
int  f( int a,char b ) ;
static const char *g(const char*s,int* const p,int&r,...);
unsigned long h(int (*callback)(int), int a[], int b = 1, const A<B, C>& c = A<B, C>());
void i(void) const throw( X ) ;
virtual void j(int,char*,const A&) = 0;
inline int k() { return 1; }
A::B* A::c( ) volatile { }
A operator+(const A& a, const A& b);
operator int() const;
int  // line
l();
int /* block */ m(int a /* first */, // line
  int b);
int n(
#ifdef X
int a,
#endif
int b);
template<class T>T o(T t){return t;}
template <class T> A<T>::A(int a);
~D();
main() { }
extern int p(int);
int (*q)(int, char*);
void (A::*r)( int ) const;
typedef int ( *  s )(void *);
int *const *t(char **argv);
