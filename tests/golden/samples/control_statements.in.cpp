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
}