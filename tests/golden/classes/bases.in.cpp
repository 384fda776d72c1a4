class A:public B{};
class C : public virtual D ,private E,F { int c; };
class G
    : public H,  // first
      /* second */ protected I<J,K>,
      private virtual L::M
{
};
struct N /* name */ : /* colon */ O, /* comma */ P {};
struct Q : R // tail
{ int q; };
