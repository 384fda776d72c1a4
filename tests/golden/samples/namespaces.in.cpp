namespace Outer{
class X{
X();
~X();
};

namespace Inner{
class Y {
Y();
~Y();
};}

// functions
int free1(int i);
std::string free2(const std::string& s);

// data
int x = 1;
char c = 'a';
char* s = "abcde";
}