int x;
void f() {
if (a) {
