class A {
public: int a;
  // private parts
private:
    int b;
    protected: void f();
signals: void g();
public slots:
    void h();
};
class B
{
    int x; public: int y;
    /* before */ private: /* after */ int z;
    struct C { public: int c; };
#ifdef D
protected:
#endif
    int w;
};
