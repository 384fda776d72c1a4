// The built-in samples to the letter, and those of the settings.
#include "editor/BrevisUI_PreviewSamples.h"

#include "editor/BrevisUI_PageTable.h"
#include "settings/BrevisUI_EditorSettings.h"

namespace BrevisUI {

namespace {

struct Sample {
    std::string_view name;
    std::string_view text;
};

// The first line feed stands for the beginning of the text, so that its lines begin at the margin.
constexpr Sample builtInSamples[] = {
    {"GlobalsPreview", R"(
// This preview shows an overview of 
// the whole scheme. To change the
// layout of a particular element
// click on it's tab.
// Each option has context-help.
// Previews update in real-time!

class A : public B, C
{
public:
A(int num);
private:
int m_Num;
};

int main(void)
{
if (condition)
{
doSomething();
}
else
{
while (true)
{
doSomethingElse();
}
}

return 0;
}

namespace NS
{
enum Seasons
{
spring,summer,autumn,winter
};
}

char* userName = 0;
int count = 42;
int& countRef = count;

template <class T, int i> class Buffer
{
Buffer();
};)"},
    {"ClassesPreview", R"(
class clsA : public clsB, public clsC {
public:
clsA(int x, char* y);
~clsA();
int getX() const;
char* getY() const;
void setX(int newX);
void setY(char* newY);
private:
int memberX;
char* memberY;
bool memberZ;
};

union Location {
struct Point2d {
float x;
float y;
};

struct Point3d {
float x;
float y;
float z;
};
};)"},
    {"EnumsPreview", R"(
enum keyword{ASM,AUTO,BREAK};

enum Colour{red=1,yellow=2,green=3,purple=4};

)"},
    {"NamespacesPreview", R"(
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
})"},
    {"FunctionsPreview", R"(
// group of function declarations
void callme1(int ph);
String* callme2(int ph, Date when);

// something in between
int i;
char* c;

// another group of functions
VeryLongClassName callme3();
int callme4();

bool Equal(const char* a, const char* b)
{
return strcmp(a, b) == 0;
}

// For extra options see the
// Member Initializer Lists tab
Fred::Fred(int& i) : i_(i)
{

})"},
    {"MemberInitsPreview", R"(
Queue::Queue(int qs) : qsize(qs)
{
front = rear = NULL;
items = 0;
}

namespace MyNS {
Cls::Cls(char* p1, int p2) : m_P1(p1),m_P2(p2){
++m_Count;}
}

Employee::Employee(const Firm & f) : m_Firm(f)
{

})"},
    {"DataPreview", R"(
int main(void)
{

const int arraySize = 3;
const char* errorMsg = "Unknown";
const char* colorName = "Red";
const char defaultColor = 'r';

char color[arraySize] = {'r', 'g', 'b'};
}

struct Dress
{
char name[20];
int size;
double price;
};

)"},
    {"ControlStatementsPreview", R"(
switch (season)
{
case summer:
surf();
break;
case winter:
ski();
break;
default:
swim();
break;
}

if (condition)
{
doSomething();
}
else
{
while (true)
{
doSomethingElse();
}
}

if (x < y)
y=0;
else
x=1;

try
{
doSomething();
return true;
}
catch (const exception& e) {
reportErr();
}

do
{
a = foo(a);
}
while(a > 0);

for (int i = 1; i < 10; ++i)
{cout << i; 
})"},
    {"PreprocessorPreview", R"(
bool doesSomething(){
runDemo();
#ifdef SYMBOL
doSomethingExtra();
#endif
return true;
})"},
    {"ExpressionsPreview", R"(
const int size = 6;
int main(void) {
float age[size];
cout << "enter your age";
int i=0;
float temp = 21;
while (i < size && temp >= 0)
{
age[i++]=temp;
if (i < size)
 cin >>temp;
}
}

int main(void)
{
char x[2] [20] = {"Silly","to demonstrate layout\n"};
char * y = "example";

for (int i = 0; i < 3; i++)
{
cout << (test() ? y : x[1]);
doSomething(i, x, y);
}
return 0;})"},
    {"PointersReferencesPreview", R"(
char* userName = 0;
int count = 42;
int& countRef = count;

void Foo(char* cp)
void Foo(const std::string& s);)"},
    {"TemplatesPreview", R"(
template<class T,int i>class Buffer{
Buffer();
};

template<class T,class C>int compare(const String<T>& str1,const String<T>& str2)
{

}

namespace Utils
{
template<class H, class T>
struct TypeList
{
typedef H Head;
typedef T Tail;
};
}

template <class Type>
class Stack
{
public:
Stack();
private:
int top;
};)"},
    {"LineWrappingPreview", R"(
bool set_up_log_messages(const std::string& filename, const std::string& startup_msg, const std::string& run_msg)
{
if ((set_logging_filename(filename) != 0) || (log_err_msg(startup_msg, LOG_TRACE, 1) != 0) || (log_err_msg(run_msg, LOG_TRACE, 1) != 0)){return false;}
return true;
}

Address vellum = {"Vellum Software", "web address", "PO Box 1", "Suburb", "State", 2000, "Country", "telephone number", "fax number"};

void PrintAddress(const Address* a){
cout << a->name << '\n' << a->website << '\n' << a->street << '\n' << a->suburb << '\n' << a->state << '\n' << a->postcode << '\n' << a->country << '\n';
}

enum Colours{blue,pink,yellow,green,orange,red,purple,magenta,violet,peach,aquamarine};

class Test:public virtual classA,private virtual classB,virtual classC,public virtual classD{};

Person(const std::string& firstName,const std::string& lastName,eGender sexOfPerson,const Date& dateOfBirth):m_FirstName(firstName),m_LastName(lastName),m_Sex(sexOfPerson),m_DateOfBirth(dateOfBirth){})"},
};

}  // namespace

std::string_view builtInSample(std::string_view name) {
    for (const Sample& sample : builtInSamples) {
        if (sample.name == name) return sample.text.substr(1);
    }
    return {};
}

LoadedSamples loadSamples(SettingsFile& settings) {
    LoadedSamples samples;
    for (const PageInfo& page : pageTable) {
        samples.hasNew |= !settings.text(SettingsFile::Section::Options, page.previewName);
        samples.table.emplace(page.previewName,
                              previewSample(page.previewName, builtInSample(page.previewName), settings));
    }
    return samples;
}

}  // namespace BrevisUI
