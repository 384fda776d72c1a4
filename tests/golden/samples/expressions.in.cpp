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
return 0;}