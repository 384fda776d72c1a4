bool doesSomething(){
runDemo();
#ifdef SYMBOL
doSomethingExtra();
#endif
return true;
}