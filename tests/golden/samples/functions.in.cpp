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

}