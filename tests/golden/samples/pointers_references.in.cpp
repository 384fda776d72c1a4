char* userName = 0;
int count = 42;
int& countRef = count;

void Foo(char* cp)
void Foo(const std::string& s);