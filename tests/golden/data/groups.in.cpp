int a = 1;
unsigned long bb = 22;
char* ccc = "c"; // comment

const A& d = a;
void f();
int e = 5;
A* const g(char* s);
std::string hh(int);
class K {
public:
int a;
unsigned long b;
char* c;
K(int);
~K();
K& operator=(const K& k);
virtual void d(char*& e) const;
private:
int /* no part */ f;
std::vector<int>* g, h;
struct { int i; } j;
int bits : 3;
};
int after;
void l() {
int i = 0;
A** p = 0;
case_label: char& r = *q;
const char* const names[] = { "a", "b" };
f(i);
double dd = 1.5;
if (i) { int x = 1; long y = 2; }
int z = 0;
}
