void f() {
if(a)b(); else c();
if (a) { b(); } else { c(); }
if( a ){b();}else if(c) {d();}
  else   /* chain */ if (e) f();
else g();
if (a)
  if (b) c();
  else d();
else { if (e) f(); }
if (a) { b(); } // behind
else { c(); }
if (a) { b(); }
/* before */ else c();
if (a) // head
{ b(); }
if (a) // head
  b();
while( a<b&&c ) d();
while (a) { }
while (a);
do a(); while(b);
do { a(); } while( b ) ; c();
for(int i=0;i<n;++i) a(i);
for(;;){ a(); }
for ( i = 0 ;
  i < n;
  i++, j-- ) { a(); }
try { a(); } catch( const A&b ){ c(); } catch (...) { }
if (f(a, (b))) { { c(); } }
if (a) return; else throw b;
if (a) {
#ifdef X
b();
#endif
}
if (a
  && b) c();
return;
}
