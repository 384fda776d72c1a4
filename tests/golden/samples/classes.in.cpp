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
};