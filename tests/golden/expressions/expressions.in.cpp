void f() {
x=a+b*c; x=-y; a=*b; p=&q; x=a-b; a.b->c;
return -1; throw *p; ~x; x=~1; !a; !  a; x = ! a&&b;
f(a,*b); f(a,-b); f( ); f( a ,b ); f (a)(b);
(T*)p; (a)*b; (char*)*p; (int)-1; (T)x; sizeof (int); sizeof x;
a<b; a<b>c; a<b&&c>d; A<B<C> > d; A<B,C>::d( ); a<b||c; x = a < b > c;
static_cast<int*>(p); dynamic_cast < A<B> * > ( q ); const_cast<A&>(b)+1;
a[i]; a[ i ][j+1]; a[f(x, y)]; a [ ];
a?b:c; a ? *b : -c; x+=1; x<<=2; cout<<a<<b; i++; --i; a+++b; a- -b;
"one" "two"
  "three"; 'a'+'b';
a /* one */ + /* two */ b; a // line
+ b;
g(1,
  2, // two
  /* three */ 3,
#ifdef X
  4
#endif
  );
new int[10]; delete [] p; delete p; new (q) A(1,2);
a=b=c; *p++=*q--; (*p)(x); (a,b); x=(a+b)*(c-d); y = a ->* b; z = a.*b;
throw A(1); throw(a); throw; goto l; a==b!=c<=d>=e^f|g%h/i; for_each(a,b);
}
