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

